#pragma once

#include <CorvexMaterial/MaterialPlugin.h>
#include <CorvexMaterial/Noise.h>

namespace patterns {

using namespace CorvexMaterial::noise;
using CorvexMaterial::noise::Mix;
using CorvexPlugin::Colour;
using CorvexPlugin::Point;

[[nodiscard]] inline Colour Mix(const Colour& from, const Colour& to, float part)
{
    return {Mix(from.red, to.red, part), Mix(from.green, to.green, part),
            Mix(from.blue, to.blue, part)};
}

/// Brighter for factors above 1.
[[nodiscard]] inline Colour Scaled(const Colour& colour, float factor)
{
    return {colour.red * factor, colour.green * factor, colour.blue * factor};
}

/// The mean of several points inside the pixel, for patterns as fine as pixels. `at` takes u, v.
template <typename At>
Point Averaged(float u, float v, float pixel, At&& at)
{
    constexpr float kOffsets[4][2] = {
        {-0.375F, -0.125F}, {0.125F, -0.375F}, {0.375F, 0.125F}, {-0.125F, 0.375F}};
    Point sum{{}, 0.0F, 0.0F};
    for (const auto& offset : kOffsets) {
        const Point point = at(u + offset[0] * pixel, v + offset[1] * pixel);
        sum.colour.red += point.colour.red * 0.25F;
        sum.colour.green += point.colour.green * 0.25F;
        sum.colour.blue += point.colour.blue * 0.25F;
        sum.alpha += point.alpha * 0.25F;
        sum.height += point.height * 0.25F;
    }
    return sum;
}

}  // namespace patterns
