#include "OwnFormats.h"
#include "OwnImage.h"
#include "SampleFolder.h"
#include "TextureFile.h"

#include <QImageReader>

#include <cstring>

namespace {

using studio::FileImage;
using studio::ImageBounds;
using studio::ReadTextureFile;

constexpr ImageBounds kNoBounds{16384, std::int64_t{1} << 30};

struct Picture {
    std::array<QColor, 5> points;  ///< top left, top right, bottom left, bottom right, middle
    bool hasAlpha;
};

const Picture kOpaque{{"#ff0000", "#00ff00", "#0000ff", "#ffff00", "#000000"}, false};
const Picture kAlpha{{"#ff0000", QColor(0, 255, 0, 128), "#0000ff", "#ffff00", QColor(0, 0, 0, 0)},
                     true};
const Picture kOneBitAlpha{{"#ff0000", QColor(0, 255, 0), "#0000ff", "#ffff00", QColor(0, 0, 0, 0)},
                           true};
const Picture kGrey{{"#000000", "#555555", "#aaaaaa", "#ffffff", "#000000"}, false};
const Picture kGreyAlpha{
    {"#000000", QColor(85, 85, 85, 128), "#aaaaaa", "#ffffff", QColor(0, 0, 0, 0)}, true};
const Picture kBlackAtTopLeft{{"#000000", "#ffffff", "#ffffff", "#ffffff", "#ffffff"}, false};

/// The opaque picture's colours taken for directions, brought to length 1; z always upwards.
const Picture kNormals{{"#c935c9", "#35c9c9", "#3535c9", "#c9c9c9", "#3535c9"}, false};

/// Files that show the same.
struct Group {
    const Picture& picture;
    int tolerance;
    std::vector<const char*> files;
};

void ExpectPicture(QImage image, const Picture& picture, int tolerance)
{
    ASSERT_EQ(image.size(), QSize(30, 22));
    image = image.convertToFormat(QImage::Format_RGBA8888);
    const std::array<QPoint, 5> places{QPoint(0, 0), QPoint(29, 0), QPoint(0, 21), QPoint(29, 21),
                                       QPoint(14, 9)};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QColor wanted = picture.points.at(i);
        const QColor found = image.pixelColor(places.at(i));
        EXPECT_NEAR(found.alpha(), wanted.alpha(), tolerance) << "point " << i;
        if (wanted.alpha() > 0) {
            EXPECT_NEAR(found.red(), wanted.red(), tolerance) << "point " << i;
            EXPECT_NEAR(found.green(), wanted.green(), tolerance) << "point " << i;
            EXPECT_NEAR(found.blue(), wanted.blue(), tolerance) << "point " << i;
        }
    }
}

std::string PathOf(const char* file)
{
    return std::string(IMAGES_TEST_DATA "/") + file;
}

const Group kGroups[] = {
    {kOpaque,
     0,
     {"rgb24-pil.tga", "rgb24-rle-netpbm.tga", "rgb15-rle-ffmpeg.tga", "map24-pil.tga",
      "map24-netpbm.tga", "map24-rle-netpbm.tga", "map32-ffmpeg.tga", "map8-im.pcx", "map8-pil.pcx",
      "packed4-netpbm.pcx", "planes4-netpbm.pcx", "rgb24-netpbm.pcx", "rgb24-pil.pcx"}},
    {kOpaque,
     0,
     {"bc1-nvidia.dds", "rgb24-im.dds", "rgb24.bmp", "map8.bmp", "map8-rle-im.bmp", "rgb.gif",
      "rgb24.png", "map8.png", "rgb48-interlaced.png", "lzw.tif", "deflate.tif"}},
    {kAlpha,
     0,
     {"rgba32-ffmpeg.tga", "rgba32-rle-netpbm.tga", "rgba32-rle-pil.tga", "rgba32-top-pil.tga",
      "rgba32-im.pcx", "rgba32-pil.dds", "rgba32.png", "alpha-lzw.tif", "alpha16-deflate.tif"}},
    {kGrey,
     0,
     {"grey8-ffmpeg.tga", "grey8-rle-netpbm.tga", "grey8-rle-top-pil.tga", "grey8-pil.pcx",
      "packed2-netpbm.pcx", "planes2-netpbm.pcx", "bc4-nvidia.dds"}},
    {kGreyAlpha, 0, {"greyalpha16-pil.tga"}},
    {kBlackAtTopLeft, 0, {"bw1-pil.pcx"}},
    {kOneBitAlpha, 0, {"bc1a-nvidia.dds", "clear.gif"}},
    {kAlpha, 8, {"bc2-nvidia.dds"}},
    {kAlpha, 1, {"bc3-nvidia.dds", "dxt5-im.dds"}},
    {kNormals, 2, {"bc5-nvidia.dds"}},
    {kOpaque, 4, {"plain.jpg", "progressive.jpg"}},
    {kGrey, 4, {"grey.jpg"}}};

TEST(TextureFile, HasItsColoursInItsCorners)
{
    for (const auto& [picture, tolerance, files] : kGroups) {
        for (const char* file : files) {
            SCOPED_TRACE(file);
            const FileImage read = ReadTextureFile(PathOf(file), kNoBounds);
            ASSERT_EQ(read.error, "");
            EXPECT_EQ(read.image.format(), QImage::Format_RGBA8888);
            EXPECT_EQ(read.hasAlpha, picture.hasAlpha);
            ExpectPicture(read.image, picture, tolerance);
        }
    }
}

TEST(TextureFile, IsReadTheSameByEveryImageReaderOfTheProcess)
{
    QCoreApplication::addLibraryPath(QStringLiteral(IMAGES_PLUGIN_PATH));
    for (const auto& [picture, tolerance, files] : kGroups) {
        for (const char* file : files) {
            SCOPED_TRACE(file);
            QImageReader reader(QString::fromStdString(PathOf(file)));
            if (reader.size().isValid()) {
                EXPECT_EQ(reader.size(), QSize(30, 22));
            }
            ExpectPicture(reader.read(), picture, tolerance);
        }
    }
}

// Not among the cases above: where the toolkit's own reader of Targa files is installed, the image
// readers of the process ask it first, and it takes these for transparent.
TEST(TextureFile, SixteenBitsWithoutAlphaAreOpaque)
{
    const FileImage read = ReadTextureFile(PathOf("rgb15-ffmpeg.tga"), kNoBounds);
    EXPECT_FALSE(read.hasAlpha);
    ExpectPicture(read.image, kOpaque, 0);
}

TEST(TextureFile, KeepsProportionsAndHiddenColoursWhenScaledDown)
{
    const FileImage small = ReadTextureFile(PathOf("rgba32-ffmpeg.tga"), {15, 1 << 20});
    ASSERT_EQ(small.image.size(), QSize(15, 11));
    EXPECT_EQ(small.size, ReadTextureFile(PathOf("rgba32-ffmpeg.tga"), kNoBounds).image.size());
    EXPECT_EQ(small.image.pixelColor(0, 0), QColor(255, 0, 0));
    EXPECT_EQ(small.image.pixelColor(14, 0), QColor(0, 255, 0, 128));
    EXPECT_TRUE(small.hasAlpha);

    const FileImage tiny = ReadTextureFile(PathOf("plain.jpg"), {16384, 15 * 11 * 4});
    EXPECT_LE(tiny.image.sizeInBytes(), 15 * 11 * 4);
    EXPECT_GE(tiny.image.width(), 14);
    EXPECT_EQ(tiny.size, ReadTextureFile(PathOf("plain.jpg"), kNoBounds).image.size());
}

TEST(TextureFile, OfFewBytesAPixelMayHaveAsManyPixelsAsAnyOther)
{
    const CorvexTest::SampleFolder folder;
    QImage image(12000, 12000, QImage::Format_Grayscale8);
    image.fill(0);
    std::memset(image.scanLine(6000), 0xFF, std::size_t{6000} * 12000);
    const QString file = folder.Save("grey.pgm", image);
    const FileImage read = ReadTextureFile(file.toStdString(), {100, 1 << 20});
    ASSERT_EQ(read.image.size(), QSize(100, 100)) << read.error;
    EXPECT_EQ(read.image.pixelColor(50, 49), QColor(Qt::black));
    EXPECT_EQ(read.image.pixelColor(50, 50), QColor(Qt::white));
}

// The own formats never show half of a file; the toolkit's may, within the bounds.
TEST(TextureFile, ThatIsDamagedGivesAnImageOrAReason)
{
    const CorvexTest::SampleFolder folder;
    const ImageBounds bounds{64, 64 * 64 * 4};
    const QtMessageHandler loud = qInstallMessageHandler([](auto, const auto&, const auto&) {});
    for (const QFileInfo& sample : QDir(IMAGES_TEST_DATA).entryInfoList(QDir::Files)) {
        SCOPED_TRACE(sample.fileName().toStdString());
        const QByteArray good = CorvexTest::ContentOf(sample.filePath());
        const QString suffix = sample.suffix();
        const auto* own = studio::FindOwnFormat(studio::BytesOf(good), suffix.toStdString());
        for (int i = 0; i < 8; ++i) {
            for (const QByteArray& bytes : {good.first(good.size() * i / 8),
                                            QByteArray(good).replace(16 * i, 8, "damaged!")}) {
                const QString path = folder.Write("damaged." + suffix, bytes);
                const FileImage read = ReadTextureFile(path.toStdString(), bounds);
                EXPECT_EQ(read.image.isNull(), !read.error.empty());
                EXPECT_LE(read.image.sizeInBytes(), bounds.bytes);
                EXPECT_TRUE(own == nullptr || read.image.isNull() || bytes.size() > good.size() / 2)
                    << bytes.size();
            }
        }
    }
    qInstallMessageHandler(loud);
}

TEST(TextureFile, SaysWhyThereIsNoImage)
{
    for (const char* path : {"missing.png", ".", "README.md"}) {
        const FileImage read = ReadTextureFile(PathOf(path), kNoBounds);
        EXPECT_TRUE(read.image.isNull()) << path;
        EXPECT_NE(read.error, "") << path;
    }
    EXPECT_TRUE(ReadTextureFile("/dev/zero", kNoBounds).image.isNull());
}

}  // namespace
