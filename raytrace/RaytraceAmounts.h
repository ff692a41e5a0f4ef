#pragma once

#include "host/RaytraceAttributes.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace CorvexMaterial {

/// An amount of the raytrace attributes, edited by a slider.
struct RaytraceAmount {
    std::string_view slider;  ///< the control's name
    float CorvexDB::cdtRayTraceMaterialAttributes::*field;
    int minimum;
    int defaultPosition;
};

inline constexpr int kAmountMaximum = 10;

using RaytraceRecord = CorvexDB::cdtRayTraceMaterialAttributes;

/// In the order in which OK reads the sliders.
inline constexpr std::array<RaytraceAmount, 12> kRaytraceAmounts{{
    {"sldBrilliance", &RaytraceRecord::Brilliance, 1, 5},
    {"sldReflection", &RaytraceRecord::Reflection, 0, 0},
    {"sldIridescenceFactor", &RaytraceRecord::IridescenceFactor, 0, 0},
    {"sldIridescenceThickness", &RaytraceRecord::IridescenceThickness, 0, 5},
    {"sldIridescenceTurbulence", &RaytraceRecord::IridescenceTurbulence, 0, 5},
    {"sldRoughness", &RaytraceRecord::Roughness, 1, 5},
    {"sldNormalDepth", &RaytraceRecord::NormalDepth, 0, 5},
    {"sldNormalScale", &RaytraceRecord::NormalScale, 0, 5},
    {"sldColorPatternFrequency", &RaytraceRecord::ColorPatternFrequency, 0, 0},
    {"sldColorPatternTurbulence", &RaytraceRecord::ColorPatternTurbulence, 0, 0},
    {"sldNormalPatternFrequency", &RaytraceRecord::NormalPatternFrequency, 0, 0},
    {"sldNormalPatternTurbulence", &RaytraceRecord::NormalPatternTurbulence, 0, 0},
}};

/// The slider position that shows a stored amount: rounded and kept inside the slider's range, also
/// for what is no number.
[[nodiscard]] int PositionOf(const RaytraceAmount& amount, float stored);

}  // namespace CorvexMaterial
