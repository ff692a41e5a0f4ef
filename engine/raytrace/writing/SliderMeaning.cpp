#include "SliderMeaning.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

constexpr float kMostIridescence = 0.5F;
constexpr float kSmallestPattern = 0.02F;  ///< of half the shape's longest side
constexpr float kPatternStep = 0.04F;

/// A slider's position; anything else counts as its nearest end.
float Position(float stored)
{
    return std::isfinite(stored) ? std::clamp(stored, 0.0F, 10.0F) : 0.0F;
}

float Tenth(float stored)
{
    return Position(stored) / 10.0F;
}

/// 1 at position 5, growing by this factor with each step.
float AroundFive(float stored, float factor)
{
    return std::pow(factor, std::max(Position(stored), 1.0F) - 5.0F);
}

}  // namespace

RaytraceAmounts AmountsOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    RaytraceAmounts amounts;
    amounts.brilliance = AroundFive(attributes.Brilliance, 1.32F);
    amounts.shininess = kShininess / AroundFive(attributes.Roughness, 1.68F);
    amounts.reflection = Tenth(attributes.Reflection);
    amounts.metallic = attributes.Metallic;
    amounts.iridescence = kMostIridescence * Tenth(attributes.IridescenceFactor);
    amounts.filmThickness = Tenth(attributes.IridescenceThickness);
    amounts.filmTurbulence = Tenth(attributes.IridescenceTurbulence);
    return amounts;
}

PatternAmounts ColourPatternOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    PatternAmounts amounts;
    amounts.frequency = 1.0F + Position(attributes.ColorPatternFrequency);
    amounts.turbulence = Tenth(attributes.ColorPatternTurbulence);
    return amounts;
}

PatternAmounts NormalPatternOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    PatternAmounts amounts;
    amounts.frequency = 1.0F + Position(attributes.NormalPatternFrequency);
    amounts.turbulence = Tenth(attributes.NormalPatternTurbulence);
    amounts.depth = Tenth(attributes.NormalDepth);
    amounts.size = kSmallestPattern + kPatternStep * Position(attributes.NormalScale);
    return amounts;
}

}  // namespace studio
