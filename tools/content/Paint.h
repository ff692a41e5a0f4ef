#pragma once

#include <CorvexMaterial/Colour.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace media {

/// A colour as it is stored in an image: sRGB, 0 to 1. Mixed as stored, like paint by eye.
using Paint = CorvexMaterial::Rgb;

[[nodiscard]] constexpr Paint Hex(std::uint32_t rgb)
{
    return CorvexMaterial::DisplayedOf(CorvexMaterial::ColourOfHex(rgb));
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
