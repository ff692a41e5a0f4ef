#include "Seam.h"

namespace {

// JPEG keeps colour at half the resolution and does not know what lies beyond a border.
constexpr double kMostStep = 1.25;

QFileInfoList Images(const char* folder)
{
    const QDir images(QStringLiteral(LIBRARY_FOLDER) + u'/' + QLatin1String(folder));
    return images.entryInfoList(QDir::Files, QDir::Name);
}

TEST(ShippedImages, TexturesTileInBothDirections)
{
    const QFileInfoList files = Images("Textures");
    ASSERT_GE(files.size(), 40);
    for (const QFileInfo& file : files) {
        const QImage image(file.filePath());
        ASSERT_GE(std::min(image.width(), image.height()), 512) << file.filePath().toStdString();
        CorvexTest::ExpectTiles(image, file.fileName().toStdString(), kMostStep);
    }
}

TEST(ShippedImages, EnvironmentsCloseAround)
{
    const QFileInfoList files = Images("Environments");
    ASSERT_EQ(files.size(), 3);
    for (const QFileInfo& file : files) {
        const QImage image(file.filePath());
        EXPECT_EQ(image.width(), 2 * image.height()) << file.filePath().toStdString();
        CorvexTest::ExpectSidesMeet(image, file.fileName().toStdString(), kMostStep);
    }
}

}  // namespace
