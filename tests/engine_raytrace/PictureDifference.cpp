#include "PictureDifference.h"
#include "Testing.h"

namespace StudioRaytraceTest {
namespace {

constexpr int kWindow = 8;

/// Sums of one window, for its means, variances and covariance.
struct Moments {
    double one = 0.0;
    double other = 0.0;
    double oneSquared = 0.0;
    double otherSquared = 0.0;
    double product = 0.0;
};

bool IsInside(const QImage& mask, const QRect& window)
{
    for (int y = window.top(); y <= window.bottom(); ++y) {
        for (int x = window.left(); x <= window.right(); ++x) {
            if (mask.pixelIndex(x, y) == 0) {
                return false;
            }
        }
    }
    return true;
}

/// Wang, Bovik, Sheikh, Simoncelli: Image quality assessment, 2004.
double SimilarityOf(const Moments& sums)
{
    constexpr double kCount = kWindow * kWindow;
    constexpr double kC1 = (0.01 * 255.0) * (0.01 * 255.0);
    constexpr double kC2 = (0.03 * 255.0) * (0.03 * 255.0);
    const double a = sums.one / kCount;
    const double b = sums.other / kCount;
    const double varianceA = sums.oneSquared / kCount - a * a;
    const double varianceB = sums.otherSquared / kCount - b * b;
    const double covariance = sums.product / kCount - a * b;
    return (2.0 * a * b + kC1) * (2.0 * covariance + kC2) /
           ((a * a + b * b + kC1) * (varianceA + varianceB + kC2));
}

double WindowSimilarity(const QImage& one, const QImage& other, const QRect& window)
{
    Moments sums;
    for (int y = window.top(); y <= window.bottom(); ++y) {
        for (int x = window.left(); x <= window.right(); ++x) {
            const double a = qGray(one.pixel(x, y));
            const double b = qGray(other.pixel(x, y));
            sums.one += a;
            sums.other += b;
            sums.oneSquared += a * a;
            sums.otherSquared += b * b;
            sums.product += a * b;
        }
    }
    return SimilarityOf(sums);
}

double Similarity(const QImage& one, const QImage& other, const QImage& mask)
{
    double sum = 0.0;
    int windows = 0;
    for (int y = 0; y + kWindow <= one.height(); y += kWindow / 2) {
        for (int x = 0; x + kWindow <= one.width(); x += kWindow / 2) {
            const QRect window(x, y, kWindow, kWindow);
            if (IsInside(mask, window)) {
                sum += WindowSimilarity(one, other, window);
                ++windows;
            }
        }
    }
    return windows == 0 ? 0.0 : sum / windows;
}

}  // namespace

QImage InnerMask(const QImage& picture, const QImage& empty, int band)
{
    QImage mask(picture.size(), QImage::Format_Mono);
    mask.fill(1);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != empty.pixel(x, y)) {
                continue;
            }
            const QRect around =
                QRect(x - band, y - band, 2 * band + 1, 2 * band + 1) & mask.rect();
            for (int j = around.top(); j <= around.bottom(); ++j) {
                for (int i = around.left(); i <= around.right(); ++i) {
                    mask.setPixel(i, j, 0);
                }
            }
        }
    }
    return mask;
}

PictureDifference DifferenceOf(const QImage& one, const QImage& other, const QImage& mask)
{
    PictureDifference difference;
    int sum = 0;
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x) {
            if (mask.pixelIndex(x, y) != 0) {
                const QRgb a = one.pixel(x, y);
                const QRgb b = other.pixel(x, y);
                sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                       std::abs(qBlue(a) - qBlue(b));
                ++difference.pixels;
            }
        }
    }
    if (difference.pixels > 0) {
        difference.mean = sum / (3.0 * difference.pixels);
        difference.similarity = Similarity(one, other, mask);
    }
    return difference;
}

}  // namespace StudioRaytraceTest
