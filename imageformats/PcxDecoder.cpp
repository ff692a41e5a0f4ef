#include "PcxDecoder.h"

#include "LittleEndianReader.h"

#include <algorithm>
#include <array>

namespace studio {

namespace {

using Bytes = std::span<const std::byte>;
using Colour = std::array<std::uint8_t, 3>;
using Palette = std::vector<Colour>;

constexpr std::size_t kHeaderBytes = 128;
constexpr std::size_t kLongPaletteBytes = std::size_t{256} * 3;

struct PcxHeader {
    std::uint8_t version = 0;
    bool packed = false;
    unsigned bits = 0;  ///< of one pixel in one plane
    unsigned planes = 0;
    std::size_t bytesPerLine = 0;  ///< of one plane
    bool grey = false;
    ImageExtent extent;
    Bytes shortPalette;  ///< 16 colours

    [[nodiscard]] std::size_t RowBytes() const { return bytesPerLine * planes; }
    [[nodiscard]] bool TrueColour() const { return bits == 8 && planes >= 3; }
};

/// What a program of the time showed for files without a palette.
constexpr std::array<Colour, 16> kDefaultColours{{
    {0, 0, 0},
    {0, 0, 170},
    {0, 170, 0},
    {0, 170, 170},
    {170, 0, 0},
    {170, 0, 170},
    {170, 85, 0},
    {170, 170, 170},
    {85, 85, 85},
    {85, 85, 255},
    {85, 255, 85},
    {85, 255, 255},
    {255, 85, 85},
    {255, 85, 255},
    {255, 255, 85},
    {255, 255, 255},
}};

void Check(const PcxHeader& header)
{
    const bool fewColours = (header.bits == 1 && header.planes >= 1 && header.planes <= 4) ||
                            ((header.bits == 2 || header.bits == 4) && header.planes == 1);
    const bool wholeBytes =
        header.bits == 8 && (header.planes == 1 || header.planes == 3 || header.planes == 4);
    if (!fewColours && !wholeBytes) {
        throw ImageError("This kind of PCX file is not supported.");
    }
    CheckExtent(header.extent);
    if (header.bytesPerLine * 8 < std::size_t{header.extent.width} * header.bits) {
        throw ImageError("The PCX file is damaged: its lines are shorter than the image is wide.");
    }
}

PcxHeader ReadPcxHeader(LittleEndianReader& reader)
{
    PcxHeader header;
    const std::uint8_t signature = reader.Byte();
    header.version = reader.Byte();
    const std::uint8_t encoding = reader.Byte();
    if (signature != 10 || header.version > 5 || encoding > 1) {
        throw ImageError("This is no PCX file.");
    }
    header.packed = encoding == 1;
    header.bits = reader.Byte();
    const int left = reader.Word();
    const int top = reader.Word();
    const int right = reader.Word();
    const int bottom = reader.Word();
    if (right < left || bottom < top) {
        throw ImageError("The image is empty.");
    }
    header.extent = {static_cast<std::uint32_t>(right - left + 1),
                     static_cast<std::uint32_t>(bottom - top + 1)};
    reader.Take(4);  // resolution
    header.shortPalette = reader.Take(48);
    reader.Take(1);
    header.planes = reader.Byte();
    header.bytesPerLine = reader.Word();
    header.grey = reader.Word() == 2;
    reader.Take(58);
    Check(header);
    return header;
}

/// Runs may go on from one plane or row to the next.
std::vector<std::byte> Unpack(LittleEndianReader& reader, std::size_t size)
{
    constexpr std::size_t kLongestRun = 63;
    if (reader.Rest().size() / 2 * kLongestRun + kLongestRun < size) {
        throw ImageError("The file is cut short.");
    }
    std::vector<std::byte> raw(size);
    for (std::size_t done = 0; done < size;) {
        const std::byte part = reader.Take(1)[0];
        if ((part & std::byte{0xC0}) != std::byte{0xC0}) {
            raw[done++] = part;
            continue;
        }
        // The last run of some files fills the padding of a row that does not exist.
        const std::size_t count =
            std::min(std::to_integer<std::size_t>(part & std::byte{0x3F}), size - done);
        std::fill_n(raw.begin() + static_cast<std::ptrdiff_t>(done), count, reader.Take(1)[0]);
        done += count;
    }
    return raw;
}

Palette ColoursOf(Bytes entries)
{
    Palette palette(entries.size() / 3);
    for (std::size_t i = 0; i < palette.size() * 3; ++i) {
        palette[i / 3][i % 3] = std::to_integer<std::uint8_t>(entries[i]);
    }
    return palette;
}

Palette GreyRamp()
{
    Palette palette(256);
    for (std::size_t i = 0; i < palette.size(); ++i) {
        palette[i].fill(static_cast<std::uint8_t>(i));
    }
    return palette;
}

/// The long palette, marked by a 12, follows the image at the end of the file.
Palette LongPalette(const PcxHeader& header, Bytes file)
{
    if (file.size() > kHeaderBytes + kLongPaletteBytes) {
        const Bytes tail = file.last(kLongPaletteBytes + 1);
        if (tail[0] == std::byte{12}) {
            return ColoursOf(tail.subspan(1));
        }
    }
    if (!header.grey && header.version >= 5) {
        throw ImageError("The PCX file has no colour palette.");
    }
    return GreyRamp();
}

Palette PaletteOf(const PcxHeader& header, Bytes file)
{
    if (header.bits == 8) {
        return LongPalette(header, file);
    }
    Palette palette = ColoursOf(header.shortPalette);
    const bool blackAndWhite = header.bits == 1 && header.planes == 1;
    if (blackAndWhite && palette[0] == palette[1]) {
        return {Colour{0, 0, 0}, Colour{255, 255, 255}};
    }
    const bool paletteUnset = header.version == 3 || header.version == 0;
    if (paletteUnset && !blackAndWhite) {
        palette.assign(kDefaultColours.begin(), kDefaultColours.end());
    }
    return palette;
}

std::uint8_t ByteAt(Bytes row, std::size_t at)
{
    return std::to_integer<std::uint8_t>(row[at]);
}

unsigned IndexAt(const PcxHeader& header, Bytes row, std::size_t x)
{
    const std::size_t bit = x * header.bits;
    const auto shift = static_cast<unsigned>(8 - header.bits - bit % 8);
    const unsigned mask = (1U << header.bits) - 1;
    unsigned index = 0;
    for (unsigned plane = 0; plane < header.planes; ++plane) {
        const unsigned part = ByteAt(row, plane * header.bytesPerLine + bit / 8);
        index |= (part >> shift & mask) << plane;
    }
    return index;
}

void FillFromPalette(RgbaImage& image, const PcxHeader& header, Bytes raw, const Palette& palette)
{
    std::uint8_t* target = image.pixels.data();
    for (std::size_t y = 0; y < header.extent.height; ++y) {
        const Bytes row = raw.subspan(y * header.RowBytes(), header.RowBytes());
        for (std::size_t x = 0; x < header.extent.width; ++x) {
            const Colour& colour = palette.at(IndexAt(header, row, x));
            target = std::copy(colour.begin(), colour.end(), target);
            *target++ = 255;
        }
    }
}

void FillFromPlanes(RgbaImage& image, const PcxHeader& header, Bytes raw)
{
    const std::size_t width = header.extent.width;
    std::fill(image.pixels.begin(), image.pixels.end(), std::uint8_t{255});
    for (std::size_t y = 0; y < header.extent.height; ++y) {
        for (std::size_t plane = 0; plane < header.planes; ++plane) {
            const std::size_t start = y * header.RowBytes() + plane * header.bytesPerLine;
            const Bytes line = raw.subspan(start, width);
            std::uint8_t* target = image.pixels.data() + y * width * 4 + plane;
            for (const std::byte part : line) {
                *target = std::to_integer<std::uint8_t>(part);
                target += 4;
            }
        }
    }
}

}  // namespace

RgbaImage DecodePcx(Bytes file)
{
    LittleEndianReader reader(file);
    const PcxHeader header = ReadPcxHeader(reader);
    const std::size_t rawBytes = header.RowBytes() * header.extent.height;
    if (rawBytes > kMostImageBytes) {
        throw ImageError("The image is too large.");
    }
    std::vector<std::byte> unpacked;
    if (header.packed) {
        unpacked = Unpack(reader, rawBytes);
    }
    const Bytes raw = header.packed ? unpacked : reader.Take(rawBytes);
    RgbaImage image = BlankImage(header.extent);
    if (header.TrueColour()) {
        FillFromPlanes(image, header, raw);
    } else {
        FillFromPalette(image, header, raw, PaletteOf(header, file));
    }
    return image;
}

std::optional<ImageExtent> PcxExtent(Bytes file)
{
    try {
        LittleEndianReader reader(file);
        return ReadPcxHeader(reader).extent;
    } catch (const ImageError&) {
        return std::nullopt;
    }
}

}  // namespace studio
