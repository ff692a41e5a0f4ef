#include "TgaDecoder.h"

#include "LittleEndianReader.h"

#include <algorithm>
#include <array>

namespace studio {

namespace {

using Bytes = std::span<const std::byte>;
using Pixel = std::array<std::uint8_t, 4>;

enum class Kind : std::uint8_t { Mapped = 1, Colour = 2, Grey = 3 };

struct TgaHeader {
    std::uint8_t noteLength = 0;
    bool hasMap = false;
    Kind kind = Kind::Colour;
    bool packed = false;
    std::uint16_t mapFirst = 0;
    std::uint16_t mapLength = 0;
    std::uint8_t mapEntryBits = 0;
    ImageExtent extent;
    std::uint8_t depth = 0;
    unsigned alphaBits = 0;
    bool fromRight = false;
    bool fromTop = false;

    [[nodiscard]] std::size_t BytesPerPixel() const { return (depth + 7U) / 8; }
};

struct KindAndDepth {
    Kind kind;
    std::uint8_t depth;
    bool operator==(const KindAndDepth&) const = default;
};

constexpr std::array kReadable{
    KindAndDepth{Kind::Mapped, 8},  KindAndDepth{Kind::Mapped, 16}, KindAndDepth{Kind::Colour, 15},
    KindAndDepth{Kind::Colour, 16}, KindAndDepth{Kind::Colour, 24}, KindAndDepth{Kind::Colour, 32},
    KindAndDepth{Kind::Grey, 8},    KindAndDepth{Kind::Grey, 16},
};
constexpr std::array<std::uint8_t, 4> kMapEntryBits{15, 16, 24, 32};

void Check(const TgaHeader& header, std::uint8_t mapType, std::uint8_t imageType,
           std::uint8_t descriptor)
{
    const KindAndDepth found{header.kind, header.depth};
    const bool known = (imageType & ~0x0BU) == 0 &&
                       std::find(kReadable.begin(), kReadable.end(), found) != kReadable.end();
    const bool interleaved = (descriptor & 0xC0U) != 0;
    if (mapType > 1 || !known || interleaved) {
        throw ImageError("This kind of TGA file is not supported.");
    }
    const bool mapReadable = std::find(kMapEntryBits.begin(), kMapEntryBits.end(),
                                       header.mapEntryBits) != kMapEntryBits.end();
    if ((header.kind == Kind::Mapped && !header.hasMap) || (header.hasMap && !mapReadable)) {
        throw ImageError("The TGA file has no readable colour map.");
    }
    CheckExtent(header.extent);
}

TgaHeader ReadTgaHeader(LittleEndianReader& reader)
{
    TgaHeader header;
    header.noteLength = reader.Byte();
    const std::uint8_t mapType = reader.Byte();
    const std::uint8_t imageType = reader.Byte();
    header.hasMap = mapType == 1;
    header.kind = static_cast<Kind>(imageType & 3U);
    header.packed = (imageType & 8U) != 0;
    header.mapFirst = reader.Word();
    header.mapLength = reader.Word();
    header.mapEntryBits = reader.Byte();
    reader.Take(4);  // the position on a screen
    header.extent.width = reader.Word();
    header.extent.height = reader.Word();
    header.depth = reader.Byte();
    const std::uint8_t descriptor = reader.Byte();
    header.alphaBits = descriptor & 0x0FU;
    header.fromRight = (descriptor & 0x10U) != 0;
    header.fromTop = (descriptor & 0x20U) != 0;
    Check(header, mapType, imageType, descriptor);
    return header;
}

std::uint8_t Value(std::byte part)
{
    return std::to_integer<std::uint8_t>(part);
}

unsigned WordAt(const std::byte* at)
{
    return Value(at[0]) | static_cast<unsigned>(Value(at[1])) << 8U;
}

std::uint8_t FromFiveBits(unsigned value)
{
    value &= 31U;
    return static_cast<std::uint8_t>(value << 3U | value >> 2U);
}

Pixel FromFiveBitColours(const std::byte* at, bool useAlphaBit)
{
    const unsigned word = WordAt(at);
    const bool clear = useAlphaBit && (word & 0x8000U) == 0;
    return {FromFiveBits(word >> 10U), FromFiveBits(word >> 5U), FromFiveBits(word),
            static_cast<std::uint8_t>(clear ? 0 : 255)};
}

Pixel FromBgr(const std::byte* at)
{
    return {Value(at[2]), Value(at[1]), Value(at[0]), 255};
}

Pixel FromBgra(const std::byte* at)
{
    return {Value(at[2]), Value(at[1]), Value(at[0]), Value(at[3])};
}

std::vector<Pixel> ReadColourMap(LittleEndianReader& reader, const TgaHeader& header)
{
    const std::size_t entryBytes = (header.mapEntryBits + 7U) / 8;
    const Bytes entries = reader.Take(header.mapLength * entryBytes);
    std::vector<Pixel> map;
    map.reserve(header.mapLength);
    for (std::size_t i = 0; i < entries.size(); i += entryBytes) {
        const std::byte* at = entries.data() + i;
        map.push_back(entryBytes == 2   ? FromFiveBitColours(at, header.alphaBits == 1)
                      : entryBytes == 3 ? FromBgr(at)
                                        : FromBgra(at));
    }
    return map;
}

void AppendRepeated(std::vector<std::byte>& raw, Bytes pixel, std::size_t times)
{
    for (; times > 0; --times) {
        raw.insert(raw.end(), pixel.begin(), pixel.end());
    }
}

/// Runs may go on from one row to the next.
std::vector<std::byte> Unpack(LittleEndianReader& reader, const TgaHeader& header)
{
    const std::size_t pixelBytes = header.BytesPerPixel();
    const std::size_t pixels = header.extent.Pixels();
    constexpr std::size_t kLongestRun = 128;
    if (reader.Rest().size() / (pixelBytes + 1) * kLongestRun + kLongestRun < pixels) {
        throw ImageError("The file is cut short.");
    }
    std::vector<std::byte> raw;
    raw.reserve(pixels * pixelBytes);
    for (std::size_t done = 0; done < pixels;) {
        const std::uint8_t packet = reader.Byte();
        const std::size_t count = (packet & 0x7FU) + std::size_t{1};
        if (count > pixels - done) {
            throw ImageError("The TGA file is damaged: a run goes past the end of the image.");
        }
        if ((packet & 0x80U) != 0) {
            AppendRepeated(raw, reader.Take(pixelBytes), count);
        } else {
            const Bytes copied = reader.Take(count * pixelBytes);
            raw.insert(raw.end(), copied.begin(), copied.end());
        }
        done += count;
    }
    return raw;
}

/// `toPixel` turns the bytes of one pixel in the file into ours.
template <typename ToPixel>
void FillRows(RgbaImage& image, const TgaHeader& header, Bytes raw, ToPixel toPixel)
{
    const std::size_t width = header.extent.width;
    const std::size_t height = header.extent.height;
    const std::size_t pixelBytes = header.BytesPerPixel();
    for (std::size_t row = 0; row < height; ++row) {
        const std::byte* from = raw.subspan(row * width * pixelBytes).data();
        const std::size_t targetRow = header.fromTop ? row : height - 1 - row;
        std::uint8_t* target = image.pixels.data() + targetRow * width * 4;
        for (std::size_t x = 0; x < width; ++x) {
            const Pixel pixel = toPixel(from + x * pixelBytes);
            std::copy(pixel.begin(), pixel.end(),
                      target + (header.fromRight ? width - 1 - x : x) * 4);
        }
    }
}

void FillMapped(RgbaImage& image, const TgaHeader& header, Bytes raw, const std::vector<Pixel>& map)
{
    const bool wide = header.depth == 16;
    FillRows(image, header, raw, [&](const std::byte* at) {
        const std::size_t index = wide ? WordAt(at) : Value(*at);
        if (index < header.mapFirst || index - header.mapFirst >= map.size()) {
            throw ImageError("The TGA file is damaged: a pixel's colour is not in the colour map.");
        }
        return map[index - header.mapFirst];
    });
}

void FillGrey(RgbaImage& image, const TgaHeader& header, Bytes raw)
{
    const bool withAlpha = header.depth == 16;
    FillRows(image, header, raw, [withAlpha](const std::byte* at) {
        const std::uint8_t grey = Value(*at);
        return Pixel{grey, grey, grey, withAlpha ? Value(at[1]) : std::uint8_t{255}};
    });
}

/// Files that do not declare their fourth byte to be alpha use it as alpha all the same, or leave
/// it at zero.
void MakeOpaqueIfUnused(RgbaImage& image)
{
    for (std::size_t i = 3; i < image.pixels.size(); i += 4) {
        if (image.pixels[i] != 0) {
            return;
        }
    }
    for (std::size_t i = 3; i < image.pixels.size(); i += 4) {
        image.pixels[i] = 255;
    }
}

void FillColour(RgbaImage& image, const TgaHeader& header, Bytes raw)
{
    if (header.depth == 32) {
        FillRows(image, header, raw, FromBgra);
    } else if (header.depth == 24) {
        FillRows(image, header, raw, FromBgr);
    } else {
        const bool useAlphaBit = header.depth == 16 && header.alphaBits == 1;
        FillRows(image, header, raw, [useAlphaBit](const std::byte* at) {
            return FromFiveBitColours(at, useAlphaBit);
        });
    }
}

}  // namespace

RgbaImage DecodeTga(Bytes file)
{
    LittleEndianReader reader(file);
    const TgaHeader header = ReadTgaHeader(reader);
    reader.Take(header.noteLength);
    std::vector<Pixel> map;
    if (header.hasMap) {
        map = ReadColourMap(reader, header);
    }
    std::vector<std::byte> unpacked;
    if (header.packed) {
        unpacked = Unpack(reader, header);
    }
    const Bytes raw =
        header.packed ? unpacked : reader.Take(header.extent.Pixels() * header.BytesPerPixel());
    RgbaImage image = BlankImage(header.extent);
    switch (header.kind) {
    case Kind::Mapped:
        FillMapped(image, header, raw, map);
        break;
    case Kind::Grey:
        FillGrey(image, header, raw);
        break;
    case Kind::Colour:
        FillColour(image, header, raw);
        break;
    }
    if (header.alphaBits == 0) {
        MakeOpaqueIfUnused(image);
    }
    return image;
}

std::optional<ImageExtent> TgaExtent(Bytes file)
{
    try {
        LittleEndianReader reader(file);
        return ReadTgaHeader(reader).extent;
    } catch (const ImageError&) {
        return std::nullopt;
    }
}

}  // namespace studio
