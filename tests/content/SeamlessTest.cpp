#include "Testing.h"

namespace {

// Enough to see a seam.
constexpr int kRowsApart = 4;

/// How much the light of two columns differs, per pixel. JPEG keeps colour at half the resolution
/// and does not know what lies beyond a border, so hues may differ there by a little.
double ColumnDifference(const QImage& image, int left, int right)
{
    int sum = 0;
    for (int y = 0; y < image.height(); y += kRowsApart) {
        const QRgb a = image.pixel(left, y);
        const QRgb b = image.pixel(right, y);
        sum += std::abs(qGray(a) - qGray(b)) + std::abs(qAlpha(a) - qAlpha(b));
    }
    return static_cast<double>(sum) * kRowsApart / image.height();
}

/// The step over the border, compared with the largest step between neighbours inside.
void ExpectSidesMeet(const QImage& image, const QString& name)
{
    double largestInside = 0.0;
    for (int x = 1; x < image.width(); ++x) {
        largestInside = std::max(largestInside, ColumnDifference(image, x - 1, x));
    }
    EXPECT_LE(ColumnDifference(image, image.width() - 1, 0), 1.25 * largestInside + 1.0)
        << name.toStdString();
}

QFileInfoList Images(const char* folder)
{
    const QDir images(QStringLiteral(LIBRARY_FOLDER) + u'/' + QLatin1String(folder));
    return images.entryInfoList(QDir::Files, QDir::Name);
}

}  // namespace

TEST(ShippedImages, TexturesTileInBothDirections)
{
    const QFileInfoList files = Images("Textures");
    ASSERT_GE(files.size(), 40);
    for (const QFileInfo& file : files) {
        const QImage image(file.filePath());
        ASSERT_GE(std::min(image.width(), image.height()), 512) << file.filePath().toStdString();
        ExpectSidesMeet(image, file.fileName() + QStringLiteral(", left and right"));
        ExpectSidesMeet(image.transformed(QTransform().rotate(90)),
                        file.fileName() + QStringLiteral(", top and bottom"));
    }
}

TEST(ShippedImages, EnvironmentsCloseAround)
{
    const QFileInfoList files = Images("Environments");
    ASSERT_EQ(files.size(), 3);
    for (const QFileInfo& file : files) {
        const QImage image(file.filePath());
        EXPECT_EQ(image.width(), 2 * image.height()) << file.filePath().toStdString();
        ExpectSidesMeet(image, file.fileName());
    }
}
