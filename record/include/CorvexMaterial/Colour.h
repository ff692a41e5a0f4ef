#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace CorvexMaterial {

/// red + green * 256 + blue * 65536, each component 0 to 255, as a screen shows it (sRGB). The top
/// byte is ignored.
using Colour = std::int32_t;

struct ColourBytes {
    int red = 0;
    int green = 0;
    int blue = 0;
};

/// 0 to 1 each; as displayed (encoded as sRGB) or as light, as is said where one is used.
struct Rgb {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
};

inline constexpr Colour kWhite = 0xFFFFFF;

/// Components 0 to 255; higher bits of a component are cut off.
[[nodiscard]] constexpr Colour MakeColour(ColourBytes bytes)
{
    return (bytes.red & 0xFF) | ((bytes.green & 0xFF) << 8) | ((bytes.blue & 0xFF) << 16);
}

/// Of 0xRRGGBB.
[[nodiscard]] constexpr Colour ColourOfHex(std::uint32_t hex)
{
    const auto bits = static_cast<std::int32_t>(hex);
    return MakeColour({bits >> 16, bits >> 8, bits});
}

[[nodiscard]] constexpr ColourBytes BytesOf(Colour colour)
{
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

[[nodiscard]] constexpr bool operator==(Rgb a, Rgb b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

[[nodiscard]] constexpr Rgb operator+(Rgb a, Rgb b)
{
    return {a.red + b.red, a.green + b.green, a.blue + b.blue};
}

[[nodiscard]] constexpr Rgb operator*(Rgb a, Rgb b)
{
    return {a.red * b.red, a.green * b.green, a.blue * b.blue};
}

[[nodiscard]] constexpr Rgb operator*(Rgb colour, float factor)
{
    return {colour.red * factor, colour.green * factor, colour.blue * factor};
}

/// 0 for what is no number.
[[nodiscard]] constexpr float CutToUnit(float value)
{
    return value >= 0.0F ? std::min(value, 1.0F) : 0.0F;
}

// The curve of sRGB: IEC 61966-2-1.

[[nodiscard]] inline float LinearFromEncoded(float encoded)
{
    return encoded <= 0.04045F ? encoded / 12.92F : std::pow((encoded + 0.055F) / 1.055F, 2.4F);
}

[[nodiscard]] inline float EncodedFromLinear(float linear)
{
    return linear <= 0.0031308F ? linear * 12.92F : 1.055F * std::pow(linear, 1.0F / 2.4F) - 0.055F;
}

[[nodiscard]] constexpr Rgb DisplayedOf(Colour colour)
{
    const ColourBytes bytes = BytesOf(colour);
    return {static_cast<float>(bytes.red) / 255.0F, static_cast<float>(bytes.green) / 255.0F,
            static_cast<float>(bytes.blue) / 255.0F};
}

/// Of a component as displayed, 0 to 255.
[[nodiscard]] inline float LightOfByte(int byte)
{
    static const auto kLights = [] {
        std::array<float, 256> lights{};
        std::generate(lights.begin(), lights.end(), [next = 0]() mutable {
            return LinearFromEncoded(static_cast<float>(next++) / 255.0F);
        });
        return lights;
    }();
    return kLights[static_cast<std::size_t>(byte & 0xFF)];
}

[[nodiscard]] inline Rgb LightOf(Colour colour)
{
    const ColourBytes bytes = BytesOf(colour);
    return {LightOfByte(bytes.red), LightOfByte(bytes.green), LightOfByte(bytes.blue)};
}

/// Components beyond 0 to 1, and those that are no numbers, are cut.
[[nodiscard]] inline Colour ColourOfDisplayed(Rgb displayed)
{
    const auto byte = [](float part) {
        return static_cast<int>(std::lround(255.0F * CutToUnit(part)));
    };
    return MakeColour({byte(displayed.red), byte(displayed.green), byte(displayed.blue)});
}

[[nodiscard]] inline Colour ColourOfLight(Rgb light)
{
    return ColourOfDisplayed({EncodedFromLinear(CutToUnit(light.red)),
                              EncodedFromLinear(CutToUnit(light.green)),
                              EncodedFromLinear(CutToUnit(light.blue))});
}

}  // namespace CorvexMaterial
