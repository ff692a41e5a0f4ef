#pragma once

#include "studio/plugins/MaterialPlugin.h"

#include <algorithm>
#include <cmath>

namespace patterns {

using CorvexPlugin::Colour;
using CorvexPlugin::Point;

/// 0 below the first edge, 1 above the second, smooth between.
[[nodiscard]] inline float Smooth(float from, float to, float value)
{
    const float t = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
    return t * t * (3.0F - 2.0F * t);
}

/// Unlike std::lerp not exact at the far end, and quick.
[[nodiscard]] inline float Mix(float from, float to, float part)
{
    return from + (to - from) * part;
}

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

[[nodiscard]] inline float Fraction(float value)
{
    return value - std::floor(value);
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
