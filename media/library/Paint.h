#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace media {

/// A colour as it is stored in an image: sRGB, 0 to 1. Mixed as stored, like paint by eye.
struct Paint {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
};

[[nodiscard]] constexpr Paint Hex(std::uint32_t rgb)
{
    return {static_cast<float>((rgb >> 16) & 0xFFU) / 255.0F,
            static_cast<float>((rgb >> 8) & 0xFFU) / 255.0F,
            static_cast<float>(rgb & 0xFFU) / 255.0F};
}

[[nodiscard]] constexpr Paint operator*(Paint paint, float light)
{
    return {paint.red * light, paint.green * light, paint.blue * light};
}

[[nodiscard]] constexpr Paint operator+(Paint a, Paint b)
{
    return {a.red + b.red, a.green + b.green, a.blue + b.blue};
}

[[nodiscard]] constexpr Paint Mix(Paint from, Paint to, float part)
{
    return from * (1.0F - part) + to * part;
}

/// Along evenly spaced colours, the first at 0 and the last at 1.
[[nodiscard]] constexpr Paint Ramp(std::span<const Paint> colours, float at)
{
    const auto last = static_cast<float>(colours.size() - 1);
    const float place = std::clamp(at, 0.0F, 1.0F) * last;
    const auto index = std::min(static_cast<std::size_t>(place), colours.size() - 2);
    return Mix(colours[index], colours[index + 1], place - static_cast<float>(index));
}

/// One point of a texture and of the images that go with it.
struct Texel {
    Paint colour{0.5F, 0.5F, 0.5F};
    float height = 0.5F;  ///< 0 to 1; 1 stands 0.03 of a tile above 0
    float shine = 1.0F;   ///< 0 to 1
    float alpha = 1.0F;
};

}  // namespace media
