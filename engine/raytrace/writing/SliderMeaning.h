#pragma once

// What the sliders of the raytrace attributes mean. Positions 5 of brilliance and roughness are
// neutral: the surface then shines as the viewport draws it, which knows neither.

#include "MaterialModel.h"
#include <CorvexMaterial/RaytraceAttributes.h>

namespace studio {

struct RaytraceAmounts {
    float brilliance = 1.0F;  ///< body = base * diffuse * direct(n)^brilliance
    float shininess = kShininess;
    float reflection = 0.0F;  ///< of what is mirrored, looked at from any side
    bool metallic = false;    ///< highlight and mirror have the surface's colour
    float iridescence = 0.0F;
    float filmThickness = 0.0F;
    float filmTurbulence = 0.0F;
};

/// A pattern in the space of its shape, whose longest side runs from -1 to 1.
struct PatternAmounts {
    float frequency = 1.0F;
    float turbulence = 0.0F;
    float depth = 0.0F;  ///< of normals: 1 tilts as far as a pattern's own slope
    float size = 1.0F;
};

[[nodiscard]] RaytraceAmounts AmountsOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);
[[nodiscard]] PatternAmounts
ColourPatternOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);
[[nodiscard]] PatternAmounts
NormalPatternOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);

}  // namespace studio
