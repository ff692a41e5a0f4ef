#include "DdsDecoder.h"

#include "DdsBlocks.h"
#include "LittleEndianReader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>

namespace studio {

namespace {

using Bytes = std::span<const std::byte>;

/// Where red, green, blue and alpha are in the bits of a pixel; a mask of 0 is a missing channel.
struct Masks {
    unsigned bits = 0;
    std::array<std::uint32_t, 4> channels{};
};

struct Layout {
    bool inBlocks = false;
    BlockKind kind = BlockKind::Bc1;
    Masks masks;
};

struct PixelFormat {
    std::uint32_t flags = 0;
    std::uint32_t fourLetters = 0;
    Masks masks;
};

struct DdsHeader {
    ImageExtent extent;
    PixelFormat format;
};

constexpr std::uint32_t kHasAlpha = 0x1;
constexpr std::uint32_t kAlphaOnly = 0x2;
constexpr std::uint32_t kHasFourLetters = 0x4;
constexpr std::uint32_t kColour = 0x40;
constexpr std::uint32_t kLuminance = 0x20000;

constexpr std::uint32_t Letters(std::string_view text)
{
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) {
        value = value << 8U | static_cast<unsigned char>(text[i]);
    }
    return value;
}

constexpr std::uint32_t kNewHeader = Letters("DX10");

struct BlockRow {
    std::uint32_t code;  ///< four letters, or a number of the new header
    BlockKind kind;
};

constexpr std::array kLetterRows{
    BlockRow{Letters("DXT1"), BlockKind::Bc1},
    BlockRow{Letters("DXT2"), BlockKind::Bc2Premultiplied},
    BlockRow{Letters("DXT3"), BlockKind::Bc2},
    BlockRow{Letters("DXT4"), BlockKind::Bc3Premultiplied},
    BlockRow{Letters("DXT5"), BlockKind::Bc3},
    BlockRow{Letters("ATI1"), BlockKind::Bc4},
    BlockRow{Letters("BC4U"), BlockKind::Bc4},
    BlockRow{Letters("BC4S"), BlockKind::Bc4Signed},
    BlockRow{Letters("ATI2"), BlockKind::Bc5},
    BlockRow{Letters("BC5U"), BlockKind::Bc5},
    BlockRow{Letters("BC5S"), BlockKind::Bc5Signed},
};

/// Each with its typeless and its sRGB kin.
constexpr std::array kNumberedBlockRows{
    BlockRow{70, BlockKind::Bc1}, BlockRow{71, BlockKind::Bc1}, BlockRow{72, BlockKind::Bc1},
    BlockRow{73, BlockKind::Bc2}, BlockRow{74, BlockKind::Bc2}, BlockRow{75, BlockKind::Bc2},
    BlockRow{76, BlockKind::Bc3}, BlockRow{77, BlockKind::Bc3}, BlockRow{78, BlockKind::Bc3},
    BlockRow{79, BlockKind::Bc4}, BlockRow{80, BlockKind::Bc4}, BlockRow{81, BlockKind::Bc4Signed},
    BlockRow{82, BlockKind::Bc5}, BlockRow{83, BlockKind::Bc5}, BlockRow{84, BlockKind::Bc5Signed},
};

struct MaskRow {
    std::uint32_t code;
    Masks masks;
};

constexpr Masks kRgba{32, {0xFF, 0xFF00, 0xFF0000, 0xFF000000}};
constexpr Masks kBgra{32, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}};
constexpr Masks kBgrx{32, {0xFF0000, 0xFF00, 0xFF, 0}};
constexpr Masks kGrey{8, {0xFF, 0xFF, 0xFF, 0}};

constexpr std::array kNumberedMaskRows{
    MaskRow{24, {32, {0x3FF, 0xFFC00, 0x3FF00000, 0xC0000000}}},
    MaskRow{27, kRgba},
    MaskRow{28, kRgba},
    MaskRow{29, kRgba},
    MaskRow{49, {16, {0xFF, 0xFF00, 0, 0}}},
    MaskRow{61, kGrey},
    MaskRow{85, {16, {0xF800, 0x7E0, 0x1F, 0}}},
    MaskRow{86, {16, {0x7C00, 0x3E0, 0x1F, 0x8000}}},
    MaskRow{87, kBgra},
    MaskRow{88, kBgrx},
    MaskRow{90, kBgra},
    MaskRow{91, kBgra},
    MaskRow{92, kBgrx},
    MaskRow{93, kBgrx},
    MaskRow{115, {16, {0xF00, 0xF0, 0xF, 0xF000}}},
};

[[noreturn]] void Refuse()
{
    throw ImageError("This kind of DDS file is not supported.");
}

PixelFormat ReadPixelFormat(LittleEndianReader& reader)
{
    PixelFormat format;
    reader.Take(4);
    format.flags = reader.DoubleWord();
    format.fourLetters = reader.DoubleWord();
    format.masks.bits = reader.DoubleWord();
    for (std::uint32_t& channel : format.masks.channels) {
        channel = reader.DoubleWord();
    }
    return format;
}

DdsHeader ReadDdsHeader(LittleEndianReader& reader)
{
    constexpr std::uint32_t kHeaderBytes = 124;
    if (reader.DoubleWord() != Letters("DDS ") || reader.DoubleWord() != kHeaderBytes) {
        throw ImageError("This is no DDS file.");
    }
    DdsHeader header;
    reader.Take(4);
    header.extent.height = reader.DoubleWord();
    header.extent.width = reader.DoubleWord();
    reader.Take(56);  // row length, often wrong; depth, smaller images, reserved
    header.format = ReadPixelFormat(reader);
    reader.Take(20);
    CheckExtent(header.extent);
    return header;
}

template <typename Rows>
auto FindCode(const Rows& rows, std::uint32_t code)
{
    return std::find_if(rows.begin(), rows.end(),
                        [code](const auto& row) { return row.code == code; });
}

Layout LayoutOfNumber(std::uint32_t number)
{
    const auto* const block = FindCode(kNumberedBlockRows, number);
    if (block != kNumberedBlockRows.end()) {
        return {true, block->kind, {}};
    }
    const auto* const masks = FindCode(kNumberedMaskRows, number);
    if (masks == kNumberedMaskRows.end()) {
        Refuse();
    }
    return {false, {}, masks->masks};
}

Layout LayoutOfMasks(const PixelFormat& format)
{
    Layout layout{false, {}, format.masks};
    auto& channels = layout.masks.channels;
    if ((format.flags & kLuminance) != 0) {
        channels[1] = channels[2] = channels[0];
    } else if ((format.flags & (kColour | kAlphaOnly)) == 0) {
        Refuse();
    }
    if ((format.flags & (kHasAlpha | kAlphaOnly)) == 0) {
        channels[3] = 0;
    }
    const unsigned bits = layout.masks.bits;
    if (bits != 8 && bits != 16 && bits != 24 && bits != 32) {
        Refuse();
    }
    return layout;
}

Layout ReadLayout(LittleEndianReader& reader, const PixelFormat& format)
{
    if ((format.flags & kHasFourLetters) == 0) {
        return LayoutOfMasks(format);
    }
    if (format.fourLetters == kNewHeader) {
        const std::uint32_t number = reader.DoubleWord();
        reader.Take(16);
        return LayoutOfNumber(number);
    }
    const auto* const row = FindCode(kLetterRows, format.fourLetters);
    if (row == kLetterRows.end()) {
        Refuse();
    }
    return {true, row->kind, {}};
}

/// Brings the bits of one channel to eight; at most the upper eight of them count.
class Channel {
public:
    Channel(std::uint32_t mask, std::uint8_t valueIfMissing) : m_mask(mask)
    {
        m_values.fill(valueIfMissing);
        if (mask == 0) {
            return;
        }
        const auto width =
            static_cast<unsigned>(32 - std::countl_zero(mask) - std::countr_zero(mask));
        m_shift = static_cast<unsigned>(std::countr_zero(mask)) + (width > 8 ? width - 8 : 0);
        const unsigned most = mask >> m_shift;
        for (unsigned value = 0; value <= most; ++value) {
            m_values[value] = static_cast<std::uint8_t>((value * 255 + most / 2) / most);
        }
    }

    [[nodiscard]] std::uint8_t Of(std::uint32_t pixel) const
    {
        return m_values[(pixel & m_mask) >> m_shift];
    }

private:
    std::uint32_t m_mask;
    unsigned m_shift = 0;
    std::array<std::uint8_t, 256> m_values{};
};

void FillFromMasks(RgbaImage& image, const Masks& masks, Bytes raw)
{
    const bool noColour = (masks.channels[0] | masks.channels[1] | masks.channels[2]) == 0;
    const std::uint8_t colourIfMissing = noColour ? 255 : 0;
    const std::array channels{
        Channel(masks.channels[0], colourIfMissing), Channel(masks.channels[1], colourIfMissing),
        Channel(masks.channels[2], colourIfMissing), Channel(masks.channels[3], 255)};
    const std::size_t pixelBytes = masks.bits / 8;
    std::uint8_t* target = image.pixels.data();
    for (std::size_t at = 0; at < raw.size(); at += pixelBytes) {
        std::uint32_t pixel = 0;
        for (std::size_t i = pixelBytes; i-- > 0;) {
            pixel = pixel << 8U | std::to_integer<std::uint32_t>(raw[at + i]);
        }
        for (const Channel& channel : channels) {
            *target++ = channel.Of(pixel);
        }
    }
}

}  // namespace

RgbaImage DecodeDds(Bytes file)
{
    LittleEndianReader reader(file);
    const DdsHeader header = ReadDdsHeader(reader);
    const Layout layout = ReadLayout(reader, header.format);
    const ImageExtent extent = header.extent;
    if (!layout.inBlocks) {
        const Bytes raw = reader.Take(extent.Pixels() * (layout.masks.bits / 8));
        RgbaImage image = BlankImage(extent);
        FillFromMasks(image, layout.masks, raw);
        return image;
    }
    const std::size_t blocks = std::size_t{(extent.width + 3) / 4} * ((extent.height + 3) / 4);
    const Bytes raw = reader.Take(blocks * BlockBytes(layout.kind));
    RgbaImage image = BlankImage(extent);
    UnpackBlocks(layout.kind, raw, image);
    return image;
}

std::optional<ImageExtent> DdsExtent(Bytes file)
{
    try {
        LittleEndianReader reader(file);
        return ReadDdsHeader(reader).extent;
    } catch (const ImageError&) {
        return std::nullopt;
    }
}

}  // namespace studio
