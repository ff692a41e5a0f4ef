#include "studio/images/TextureFile.h"

#include <gtest/gtest.h>

#include <QImageReader>

#include <array>
#include <string>

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

struct FileCase {
    const char* file;
    const Picture& picture;
    int tolerance = 0;
};

void PrintTo(const FileCase& each, std::ostream* out)
{
    *out << each.file;
}

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

class FileType : public testing::TestWithParam<FileCase> {};

TEST_P(FileType, HasItsColoursInItsCorners)
{
    const FileImage read = ReadTextureFile(PathOf(GetParam().file), kNoBounds);
    ASSERT_EQ(read.error, "");
    EXPECT_EQ(read.image.format(), QImage::Format_RGBA8888);
    EXPECT_EQ(read.hasAlpha, GetParam().picture.hasAlpha);
    ExpectPicture(read.image, GetParam().picture, GetParam().tolerance);
}

TEST_P(FileType, IsReadTheSameByEveryImageReaderOfTheProcess)
{
    QImageReader reader(QString::fromStdString(PathOf(GetParam().file)));
    if (reader.size().isValid()) {
        EXPECT_EQ(reader.size(), QSize(30, 22));
    }
    ExpectPicture(reader.read(), GetParam().picture, GetParam().tolerance);
}

INSTANTIATE_TEST_SUITE_P(
    Tga, FileType,
    testing::Values(
        FileCase{"rgb24-pil.tga", kOpaque}, FileCase{"rgb24-rle-netpbm.tga", kOpaque},
        FileCase{"rgb15-rle-ffmpeg.tga", kOpaque}, FileCase{"rgba32-ffmpeg.tga", kAlpha},
        FileCase{"rgba32-rle-netpbm.tga", kAlpha}, FileCase{"rgba32-rle-pil.tga", kAlpha},
        FileCase{"rgba32-top-pil.tga", kAlpha}, FileCase{"map24-pil.tga", kOpaque},
        FileCase{"map24-netpbm.tga", kOpaque}, FileCase{"map24-rle-netpbm.tga", kOpaque},
        FileCase{"map32-ffmpeg.tga", kOpaque}, FileCase{"grey8-ffmpeg.tga", kGrey},
        FileCase{"grey8-rle-netpbm.tga", kGrey}, FileCase{"grey8-rle-top-pil.tga", kGrey},
        FileCase{"greyalpha16-pil.tga", kGreyAlpha}));

INSTANTIATE_TEST_SUITE_P(
    Pcx, FileType,
    testing::Values(FileCase{"bw1-pil.pcx", kBlackAtTopLeft}, FileCase{"grey8-pil.pcx", kGrey},
                    FileCase{"map8-im.pcx", kOpaque}, FileCase{"map8-pil.pcx", kOpaque},
                    FileCase{"packed2-netpbm.pcx", kGrey}, FileCase{"packed4-netpbm.pcx", kOpaque},
                    FileCase{"planes2-netpbm.pcx", kGrey}, FileCase{"planes4-netpbm.pcx", kOpaque},
                    FileCase{"rgb24-netpbm.pcx", kOpaque}, FileCase{"rgb24-pil.pcx", kOpaque},
                    FileCase{"rgba32-im.pcx", kAlpha}));

INSTANTIATE_TEST_SUITE_P(
    Dds, FileType,
    testing::Values(FileCase{"bc1-nvidia.dds", kOpaque}, FileCase{"bc1a-nvidia.dds", kOneBitAlpha},
                    FileCase{"bc2-nvidia.dds", kAlpha, 8}, FileCase{"bc3-nvidia.dds", kAlpha, 1},
                    FileCase{"bc4-nvidia.dds", kGrey}, FileCase{"bc5-nvidia.dds", kNormals, 2},
                    FileCase{"dxt5-im.dds", kAlpha, 1}, FileCase{"rgb24-im.dds", kOpaque},
                    FileCase{"rgba32-pil.dds", kAlpha}));

INSTANTIATE_TEST_SUITE_P(
    Others, FileType,
    testing::Values(FileCase{"rgb24.bmp", kOpaque}, FileCase{"map8.bmp", kOpaque},
                    FileCase{"map8-rle-im.bmp", kOpaque}, FileCase{"plain.jpg", kOpaque, 4},
                    FileCase{"progressive.jpg", kOpaque, 4}, FileCase{"grey.jpg", kGrey, 4},
                    FileCase{"rgb.gif", kOpaque}, FileCase{"clear.gif", kOneBitAlpha},
                    FileCase{"rgb24.png", kOpaque}, FileCase{"rgba32.png", kAlpha},
                    FileCase{"map8.png", kOpaque}, FileCase{"rgb48-interlaced.png", kOpaque},
                    FileCase{"lzw.tif", kOpaque}, FileCase{"deflate.tif", kOpaque},
                    FileCase{"alpha-lzw.tif", kAlpha}, FileCase{"alpha16-deflate.tif", kAlpha}));

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
