#include "raytrace/PatternColours.h"

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr float kByteMaximum = 255.0F;

int ByteOf(float fraction)
{
    const float inside = std::isnan(fraction) ? 0.0F : std::clamp(fraction, 0.0F, 1.0F);
    return static_cast<int>(std::lround(inside * kByteMaximum));
}

}  // namespace

Colour ColourOfFractions(const CorvexDB::PatternColour& fractions)
{
    return MakeColour({ByteOf(fractions.red), ByteOf(fractions.green), ByteOf(fractions.blue)});
}

void StoreFractions(CorvexDB::PatternColour& fractions, Colour colour)
{
    const ColourBytes bytes = BytesOf(colour);
    fractions.red = static_cast<float>(bytes.red) / kByteMaximum;
    fractions.green = static_cast<float>(bytes.green) / kByteMaximum;
    fractions.blue = static_cast<float>(bytes.blue) / kByteMaximum;
}

}  // namespace CorvexMaterial
