#pragma once

#include <CorvexMaterial/Schema.h>

#include <array>
#include <string_view>

namespace CorvexMaterial {

/// An amount of the raytrace attributes, edited by a slider.
struct RaytraceAmount {
    std::string_view slider;  ///< the control's name
    Attribute attribute;
};

/// In the order in which OK reads the sliders.
inline constexpr std::array<RaytraceAmount, 12> kRaytraceAmounts{{
    {"sldBrilliance", Attribute::RayTraceBrilliance},
    {"sldReflection", Attribute::RayTraceReflection},
    {"sldIridescenceFactor", Attribute::RayTraceIridescenceFactor},
    {"sldIridescenceThickness", Attribute::RayTraceIridescenceThickness},
    {"sldIridescenceTurbulence", Attribute::RayTraceIridescenceTurbulence},
    {"sldRoughness", Attribute::RayTraceRoughness},
    {"sldNormalDepth", Attribute::RayTraceNormalSize},
    {"sldNormalScale", Attribute::RayTraceNormalScale},
    {"sldColorPatternFrequency", Attribute::RaytraceColorPatternFrequency},
    {"sldColorPatternTurbulence", Attribute::RaytraceColorPatternTurbulence},
    {"sldNormalPatternFrequency", Attribute::RaytraceNormalFrequency},
    {"sldNormalPatternTurbulence", Attribute::RaytraceNormalTurbulence},
}};

/// The slider position that shows a stored amount: rounded and kept inside the slider's range, also
/// for what is no number.
[[nodiscard]] int PositionOf(const RaytraceAmount& amount, float stored);
[[nodiscard]] int DefaultPositionOf(const RaytraceAmount& amount);

}  // namespace CorvexMaterial
