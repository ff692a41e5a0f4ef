#pragma once

#include <array>
#include <cstdint>

namespace CorvexDB {

/// Each component 0.0 to 1.0.
struct PatternColour {
    float red = 1.0F;
    float green = 1.0F;
    float blue = 1.0F;
    float alpha = 0.0F;
};

/// What only a raytracer honours. Amounts are slider positions, whole numbers held as floats;
/// patterns and types are positions in the lists of the raytrace catalogue, 0 = "None".
struct cdtRayTraceMaterialAttributes {
    float Brilliance = 5.0F;             ///< 1 to 10
    float Reflection = 0.0F;             ///< 0 to 10
    float IridescenceFactor = 0.0F;      ///< 0 to 10
    float IridescenceThickness = 5.0F;   ///< 0 to 10
    float IridescenceTurbulence = 5.0F;  ///< 0 to 10
    float Roughness = 5.0F;              ///< 1 to 10
    float NormalDepth = 5.0F;            ///< 0 to 10
    float NormalScale = 5.0F;            ///< 0 to 10
    std::int32_t NormalPattern = 0;
    bool Metallic = false;
    std::int32_t MaterialType = 0;  ///< 0 custom, 1 predefined
    std::int32_t PredefinedType = 0;
    std::int32_t PreDefinedMaterial = 0;
    std::int32_t ColorPattern = 0;
    std::array<PatternColour, 4> ColorPatternColor{};
    float ColorPatternFrequency = 0.0F;    ///< 0 to 10
    float ColorPatternTurbulence = 0.0F;   ///< 0 to 10
    float NormalPatternFrequency = 0.0F;   ///< 0 to 10
    float NormalPatternTurbulence = 0.0F;  ///< 0 to 10
};

}  // namespace CorvexDB
