#pragma once

#include <cstdint>

namespace CorvexMaterial {

/// red + green * 256 + blue * 65536, each component 0 to 255. The top byte is ignored.
using Colour = std::int32_t;

struct ColourBytes {
    int red = 0;
    int green = 0;
    int blue = 0;
};

inline constexpr Colour kWhite = 0xFFFFFF;

/// Components 0 to 255; higher bits of a component are cut off.
[[nodiscard]] constexpr Colour MakeColour(ColourBytes bytes)
{
    return (bytes.red & 0xFF) | ((bytes.green & 0xFF) << 8) | ((bytes.blue & 0xFF) << 16);
}

[[nodiscard]] constexpr ColourBytes BytesOf(Colour colour)
{
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

}  // namespace CorvexMaterial
