#include "OwnFormats.h"
#include "OwnImage.h"
#include "Testing.h"

#include <QtEndian>

namespace {

using studio::BytesOf;
using studio::FindOwnFormat;
using studio::ImageError;
using studio::RgbaImage;

std::string Zeros(int bytes)
{
    return std::string(static_cast<std::size_t>(bytes) * 2, '0');
}

RgbaImage Decode(std::string_view format, const std::string& hex)
{
    const QByteArray file = QByteArray::fromHex(QByteArray::fromStdString(hex));
    const auto found = std::ranges::find(studio::OwnFormats(), format, &studio::OwnFormat::name);
    return found->decode(studio::BytesOf(file));
}

/// As RRGGBBAA, in reading order.
using Colours = std::vector<std::uint32_t>;

Colours PixelsOf(std::string_view format, const std::string& hex)
{
    const RgbaImage image = Decode(format, hex);
    Colours pixels;
    for (std::size_t i = 0; i < image.pixels.size(); i += 4) {
        pixels.push_back(qFromBigEndian<std::uint32_t>(&image.pixels[i]));
    }
    return pixels;
}

// Two by two, 24 bit: the file's pixels are red, green, blue, white.
std::string FourColours(const std::string& descriptor)
{
    return "000002 0000000000 00000000 0200 0200 18" + descriptor + "0000ff 00ff00 ff0000 ffffff";
}

TEST(TgaDecoder, PutsTheFirstPixelInTheCornerThatTheFileNames)
{
    const std::uint32_t red = 0xff0000ff;
    const std::uint32_t green = 0x00ff00ff;
    const std::uint32_t blue = 0x0000ffff;
    const std::uint32_t white = 0xffffffff;
    EXPECT_EQ(PixelsOf("tga", FourColours("00")), (Colours{blue, white, red, green}));
    EXPECT_EQ(PixelsOf("tga", FourColours("10")), (Colours{white, blue, green, red}));
    EXPECT_EQ(PixelsOf("tga", FourColours("20")), (Colours{red, green, blue, white}));
    EXPECT_EQ(PixelsOf("tga", FourColours("30")), (Colours{green, red, white, blue}));
}

TEST(TgaDecoder, ReadsAlphaAsDeclared)
{
    const std::string bits = "0000000000 00000000 0200 0100 10";
    EXPECT_EQ(PixelsOf("tga", "000002" + bits + "01 00fc 007c"), (Colours{0xff0000ff, 0xff000000}));
    EXPECT_EQ(PixelsOf("tga", "000002" + bits + "00 00fc 007c"), (Colours{0xff0000ff, 0xff0000ff}));
    const std::string bytes = "000002 0000000000 00000000 0200 0100 20";
    EXPECT_EQ(PixelsOf("tga", bytes + "00 0000ff00 00ff0000"), (Colours{0xff0000ff, 0x00ff00ff}))
        << "an undeclared fourth byte of zero everywhere is no alpha";
    EXPECT_EQ(PixelsOf("tga", bytes + "08 0000ff00 00ff0000"), (Colours{0xff000000, 0x00ff0000}));
}

TEST(TgaDecoder, CountsColourMapIndicesFromTheMapsStart)
{
    const std::string header = "000101 0500 0200 18 00000000 0200 0100 08 00 0000ff 00ff00";
    EXPECT_EQ(PixelsOf("tga", header + "06 05"), (Colours{0x00ff00ff, 0xff0000ff}));
    EXPECT_THROW(Decode("tga", header + "04 05"), ImageError);
    EXPECT_THROW(Decode("tga", header + "07 05"), ImageError);
}

TEST(TgaDecoder, RunsCrossRowsButNotTheEnd)
{
    const std::string header = "00000b 0000000000 00000000 0200 0200 08 20";
    EXPECT_EQ(PixelsOf("tga", header + "82 40 00 ff"),
              (Colours{0x404040ff, 0x404040ff, 0x404040ff, 0xffffffff}));
    EXPECT_THROW(Decode("tga", header + "84 40"), ImageError);
}

std::string DdsHeader(int width, int height, const std::string& pixelFormat)
{
    std::array<char, 40> size{};
    std::snprintf(size.data(), size.size(), "%02x%02x0000%02x%02x0000", height & 255, height >> 8,
                  width & 255, width >> 8);
    return "44445320 7c000000 00000000" + std::string(size.data()) + Zeros(56) + "20000000" +
           pixelFormat + Zeros(20);
}

const std::string kDxt1 = "04000000 44585431" + Zeros(20);
const std::string kDxt4 = "04000000 44585434" + Zeros(20);
const std::string kDxt5 = "04000000 44585435" + Zeros(20);
const std::string kNewHeader = "04000000 44583130" + Zeros(20);

TEST(DdsDecoder, ChoosesBetweenFourColoursAndThreeWithClear)
{
    // Red and blue, then indices 0 to 3 in the first row.
    EXPECT_EQ(PixelsOf("dds", DdsHeader(4, 1, kDxt1) + "00f8 1f00 e4000000"),
              (Colours{0xff0000ff, 0x0000ffff, 0xaa0055ff, 0x5500aaff}));
    EXPECT_EQ(PixelsOf("dds", DdsHeader(4, 1, kDxt1) + "1f00 00f8 e4000000"),
              (Colours{0x0000ffff, 0xff0000ff, 0x800080ff, 0x00000000}));
}

TEST(DdsDecoder, InterpolatesAlphaWithSevenOrFiveSteps)
{
    // Alpha indices 0, 1, 2, 7 in the first row.
    const std::string white = "ffff ffff 00000000";
    EXPECT_EQ(PixelsOf("dds", DdsHeader(4, 1, kDxt5) + "ff00 880e00000000" + white),
              (Colours{0xffffffff, 0xffffff00, 0xffffffda, 0xffffff24}));
    EXPECT_EQ(PixelsOf("dds", DdsHeader(4, 1, kDxt5) + "00ff 880e00000000" + white),
              (Colours{0xffffff00, 0xffffffff, 0xffffff33, 0xffffffff}));
}

TEST(DdsDecoder, UndoesColoursMultipliedByAlpha)
{
    // Alpha 128 everywhere; red 16 of 31.
    const RgbaImage image =
        Decode("dds", DdsHeader(1, 1, kDxt4) + "8080 000000000000 0080 0080 00000000");
    EXPECT_NEAR(image.pixels[0], 255, 10);
    EXPECT_EQ(image.pixels[3], 128);
}

TEST(DdsDecoder, ReadsTheNewHeader)
{
    const auto with = [](const std::string& number) {
        return DdsHeader(1, 1, kNewHeader) + number + "000000 03000000 00000000 01000000 00000000";
    };
    EXPECT_EQ(PixelsOf("dds", with("47") + "00f8 1f00 00000000"), (Colours{0xff0000ff}));
    EXPECT_EQ(PixelsOf("dds", with("57") + "0000ff80"), (Colours{0xff000080}));
    EXPECT_EQ(PixelsOf("dds", with("1c") + "0000ff80"), (Colours{0x0000ff80}));
    EXPECT_EQ(PixelsOf("dds", with("51") + "8181 000000000000"), (Colours{0x000000ff}));
    EXPECT_THROW(Decode("dds", with("62") + Zeros(16)), ImageError);
}

TEST(DdsDecoder, FollowsTheMasks)
{
    const auto plain = [](const std::string& flags, const std::string& bits,
                          const std::string& masks) {
        return DdsHeader(1, 1, flags + "0000 00000000" + bits + "000000" + masks);
    };
    const std::string none = "00000000";
    EXPECT_EQ(PixelsOf("dds", plain("4000", "10", "00f80000 e0070000 1f000000" + none) + "e007"),
              (Colours{0x00ff00ff}));
    EXPECT_EQ(
        PixelsOf("dds", plain("4100", "20", "0000ff3f 00fc0f00 ff030000 000000c0") + "ff0300c0"),
        (Colours{0x0000ffff}));
    EXPECT_EQ(PixelsOf("dds", plain("0200", "08", none + none + none + "ff000000") + "80"),
              (Colours{0xffffff80}));
    // Luminance and alpha.
    const std::string luminance = "01000200 00000000 10000000 ff000000" + none + none + "00ff0000";
    EXPECT_EQ(PixelsOf("dds", DdsHeader(1, 1, luminance) + "4080"), (Colours{0x40404080}));
}

TEST(PcxDecoder, RefusesLinesShorterThanTheImage)
{
    const std::string start = "0a05 01 08 0000 0000 0100 0000 00000000" + Zeros(48) + "00 03";
    EXPECT_EQ(PixelsOf("pcx", start + "0200 0100" + Zeros(58) + "10 20 30 40 c250"),
              (Colours{0x103050ff, 0x204050ff}));
    EXPECT_THROW(Decode("pcx", start + "0100 0100" + Zeros(58) + "10 20 30 40 c250"), ImageError);
}

TEST(PcxDecoder, TakesAPaletteOnlyBehindItsMark)
{
    const auto file = [](const std::string& mark) {
        return "0a05 00 08 0000 0000 0000 0000 00000000" + Zeros(48) + "00 01 0100 0100" +
               Zeros(58) + "01" + mark + Zeros(3) + "102030" + Zeros(254 * 3);
    };
    EXPECT_EQ(PixelsOf("pcx", file("0c")), Colours{0x102030ff});
    EXPECT_THROW(Decode("pcx", file("0b")), ImageError);
}

// What the header promises, the file does not hold: it must be refused before memory is taken.
TEST(ImageDecoders, RefuseHeadersLargerThanTheirFileAtOnce)
{
    const std::string pcx = "0a05 01 08 0000 0000 ff3f ff1f 00000000" + Zeros(48) + "00 03";
    const std::array<std::pair<const char*, std::string>, 8> bombs{{
        {"tga", "000002 0000000000 00000000 0040 0020 20 08"},
        {"tga", "00000a 0000000000 00000000 0040 0020 20 08 ff00000000"},
        {"tga", "00000a 0000000000 00000000 ffff ffff 20 08 ff00000000"},
        {"tga", "000101 0000ffff 20 00000000 0100 0100 08 00"},
        {"pcx", pcx + "0040 0100" + Zeros(58) + "ff00"},
        {"pcx", pcx + "ffff 0100" + Zeros(58) + "ff00"},
        {"dds", DdsHeader(16384, 8192, kDxt1) + Zeros(8)},
        {"dds", DdsHeader(65535, 65535, kDxt1)},
    }};
    const auto start = std::chrono::steady_clock::now();
    for (const auto& [format, hex] : bombs) {
        EXPECT_THROW(Decode(format, hex), ImageError) << format << " " << hex.substr(0, 40);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(100));
}

TEST(OwnFormats, DoNotTakeOtherFilesForTheirs)
{
    const auto head = [](const char* hex) { return QByteArray::fromHex(hex); };
    const QByteArray png = head("89504e470d0a1a0a 0000000d49484452 0000001e 00000016 08020000");
    const QByteArray jpeg = head("ffd8ffe000104a464946 0001010000010001 0000ffdb004300");
    const QByteArray tga = head(FourColours("20").c_str());
    for (const char* suffix : {"tga", "pcx"}) {
        EXPECT_EQ(FindOwnFormat(BytesOf(png), suffix), nullptr);
        EXPECT_EQ(FindOwnFormat(BytesOf(jpeg), suffix), nullptr);
    }
    EXPECT_NE(FindOwnFormat(BytesOf(tga), "tga"), nullptr);
    EXPECT_EQ(FindOwnFormat(BytesOf(tga), "png"), nullptr);
}

}  // namespace
