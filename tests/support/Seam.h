#pragma once

#include "Testing.h"

namespace CorvexTest {

/// How much two columns of pixels differ in light and alpha, on average.
inline double ColumnDifference(const QImage& image, int left, int right)
{
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb a = image.pixel(left, y);
        const QRgb b = image.pixel(right, y);
        sum += std::abs(qGray(a) - qGray(b)) + std::abs(qAlpha(a) - qAlpha(b));
    }
    return static_cast<double>(sum) / image.height();
}

/// The step over the border must be no more than `most` times the largest between neighbours
/// inside.
inline void ExpectSidesMeet(const QImage& image, const std::string& name, double most)
{
    double largestInside = 1.0;
    for (int x = 1; x < image.width(); ++x) {
        largestInside = std::max(largestInside, ColumnDifference(image, x - 1, x));
    }
    EXPECT_LE(ColumnDifference(image, image.width() - 1, 0), most * largestInside) << name;
}

/// The same of top and bottom too.
inline void ExpectTiles(const QImage& image, const std::string& name, double most)
{
    ExpectSidesMeet(image, name + ", left and right", most);
    ExpectSidesMeet(image.transformed(QTransform().rotate(90)), name + ", top and bottom", most);
}

}  // namespace CorvexTest
