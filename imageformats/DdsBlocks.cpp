#include "DdsBlocks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace studio {

namespace {

using Bytes = std::span<const std::byte>;
using Pixel = std::array<std::uint8_t, 4>;
using Block = std::array<Pixel, 16>;

std::uint64_t Little(Bytes bytes)
{
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) {
        value = value << 8U | std::to_integer<std::uint64_t>(bytes[i]);
    }
    return value;
}

std::uint8_t Narrow(unsigned value)
{
    return static_cast<std::uint8_t>(value);
}

Pixel From565(unsigned word)
{
    const unsigned red = word >> 11U & 31U;
    const unsigned green = word >> 5U & 63U;
    const unsigned blue = word & 31U;
    return {Narrow(red << 3U | red >> 2U), Narrow(green << 2U | green >> 4U),
            Narrow(blue << 3U | blue >> 2U), 255};
}

Pixel Mix(const Pixel& first, unsigned firstParts, const Pixel& second, unsigned secondParts)
{
    const unsigned parts = firstParts + secondParts;
    Pixel mixed{0, 0, 0, 255};
    for (std::size_t i = 0; i < 3; ++i) {
        mixed[i] = Narrow((first[i] * firstParts + second[i] * secondParts + parts / 2) / parts);
    }
    return mixed;
}

enum class ClearColour { Never, WhenSecondIsGreater };

void PutColours(Bytes bytes, ClearColour clear, Block& block)
{
    const auto first = static_cast<unsigned>(Little(bytes.first(2)));
    const auto second = static_cast<unsigned>(Little(bytes.subspan(2, 2)));
    std::array<Pixel, 4> colours{From565(first), From565(second)};
    if (clear == ClearColour::Never || first > second) {
        colours[2] = Mix(colours[0], 2, colours[1], 1);
        colours[3] = Mix(colours[0], 1, colours[1], 2);
    } else {
        colours[2] = Mix(colours[0], 1, colours[1], 1);
        colours[3] = {0, 0, 0, 0};
    }
    std::uint64_t indices = Little(bytes.subspan(4, 4));
    for (Pixel& pixel : block) {
        pixel = colours[indices & 3U];
        indices >>= 2U;
    }
}

void PutAlphaBits(Bytes bytes, Block& block)
{
    std::uint64_t alphas = Little(bytes.first(8));
    for (Pixel& pixel : block) {
        pixel[3] = Narrow(static_cast<unsigned>(alphas & 15U) * 17);
        alphas >>= 4U;
    }
}

/// The eight values that a block of one channel chooses from, for end values from `low` to `high`.
std::array<int, 8> Ramp(int first, int second, int low, int high)
{
    std::array<int, 8> ramp{first, second};
    const bool eight = first > second;
    const int steps = eight ? 7 : 5;
    for (int i = 1; i < steps; ++i) {
        ramp[static_cast<std::size_t>(i) + 1] = (first * (steps - i) + second * i) / steps;
    }
    if (!eight) {
        ramp[6] = low;
        ramp[7] = high;
    }
    return ramp;
}

enum class Sign { Unsigned, Signed };

std::array<int, 8> ChannelValues(Bytes bytes, Sign sign)
{
    const int first = std::to_integer<int>(bytes[0]);
    const int second = std::to_integer<int>(bytes[1]);
    if (sign == Sign::Unsigned) {
        return Ramp(first, second, 0, 255);
    }
    const auto fromByte = [](int value) {
        return std::max(value > 127 ? value - 256 : value, -127);
    };
    std::array<int, 8> ramp = Ramp(fromByte(first), fromByte(second), -127, 127);
    for (int& value : ramp) {
        value = (value + 127) * 255 / 254;
    }
    return ramp;
}

void PutChannel(Bytes bytes, std::size_t channel, Sign sign, Block& block)
{
    const std::array<int, 8> values = ChannelValues(bytes, sign);
    std::uint64_t indices = Little(bytes.subspan(2, 6));
    for (Pixel& pixel : block) {
        pixel[channel] = static_cast<std::uint8_t>(values[indices & 7U]);
        indices >>= 3U;
    }
}

void CopyRedToGreenAndBlue(Block& block)
{
    for (Pixel& pixel : block) {
        pixel = {pixel[0], pixel[0], pixel[0], 255};
    }
}

void CompleteNormals(Block& block)
{
    for (Pixel& pixel : block) {
        const double x = pixel[0] / 127.5 - 1.0;
        const double y = pixel[1] / 127.5 - 1.0;
        const double z = std::sqrt(std::max(0.0, 1.0 - x * x - y * y));
        pixel[2] = static_cast<std::uint8_t>(std::lround((z + 1.0) * 127.5));
        pixel[3] = 255;
    }
}

void UndoPremultiplied(Block& block)
{
    for (Pixel& pixel : block) {
        const unsigned alpha = pixel[3];
        for (std::size_t i = 0; i < 3 && alpha > 0; ++i) {
            pixel[i] = Narrow(std::min(255U, (pixel[i] * 255U + alpha / 2) / alpha));
        }
    }
}

void PutColoursAndAlpha(BlockKind kind, Bytes bytes, Block& block)
{
    PutColours(bytes.last(8), ClearColour::Never, block);
    if (kind == BlockKind::Bc2 || kind == BlockKind::Bc2Premultiplied) {
        PutAlphaBits(bytes, block);
    } else {
        PutChannel(bytes, 3, Sign::Unsigned, block);
    }
    if (kind == BlockKind::Bc2Premultiplied || kind == BlockKind::Bc3Premultiplied) {
        UndoPremultiplied(block);
    }
}

void Unpack(BlockKind kind, Bytes bytes, Block& block)
{
    switch (kind) {
    case BlockKind::Bc1:
        PutColours(bytes, ClearColour::WhenSecondIsGreater, block);
        break;
    case BlockKind::Bc2:
    case BlockKind::Bc2Premultiplied:
    case BlockKind::Bc3:
    case BlockKind::Bc3Premultiplied:
        PutColoursAndAlpha(kind, bytes, block);
        break;
    case BlockKind::Bc4:
    case BlockKind::Bc4Signed:
        PutChannel(bytes, 0, kind == BlockKind::Bc4 ? Sign::Unsigned : Sign::Signed, block);
        CopyRedToGreenAndBlue(block);
        break;
    case BlockKind::Bc5:
    case BlockKind::Bc5Signed:
        PutChannel(bytes, 0, kind == BlockKind::Bc5 ? Sign::Unsigned : Sign::Signed, block);
        PutChannel(bytes.last(8), 1, kind == BlockKind::Bc5 ? Sign::Unsigned : Sign::Signed, block);
        CompleteNormals(block);
        break;
    }
}

/// Blocks at the right and lower edge reach past the image.
void CopyBlock(const Block& block, std::size_t left, std::size_t top, RgbaImage& image)
{
    const std::size_t width = std::min<std::size_t>(4, image.extent.width - left);
    const std::size_t height = std::min<std::size_t>(4, image.extent.height - top);
    for (std::size_t y = 0; y < height; ++y) {
        std::uint8_t* target = image.pixels.data() + ((top + y) * image.extent.width + left) * 4;
        for (std::size_t x = 0; x < width; ++x, target += 4) {
            std::copy(block[y * 4 + x].begin(), block[y * 4 + x].end(), target);
        }
    }
}

}  // namespace

std::size_t BlockBytes(BlockKind kind)
{
    const bool small =
        kind == BlockKind::Bc1 || kind == BlockKind::Bc4 || kind == BlockKind::Bc4Signed;
    return small ? 8 : 16;
}

void UnpackBlocks(BlockKind kind, Bytes blocks, RgbaImage& image)
{
    Block block{};
    for (std::size_t top = 0; top < image.extent.height; top += 4) {
        for (std::size_t left = 0; left < image.extent.width; left += 4) {
            Unpack(kind, blocks.first(BlockBytes(kind)), block);
            CopyBlock(block, left, top, image);
            blocks = blocks.subspan(BlockBytes(kind));
        }
    }
}

}  // namespace studio
