#pragma once

#include "raytrace/SketchNoise.h"
#include "record/Looks.h"

namespace CorvexMaterial {

// The patterns as a sketch approximates them, in the space of the sphere of radius 1.

/// A colour pattern at a point: 0 to 1 along its colours. "Checker" is 0 or 1.
struct PatternSetting {
    float frequency = 1.0F;
    float turbulence = 0.0F;
    float size = 1.0F;  ///< of the pattern's usual size
};
[[nodiscard]] float ColourPatternAt(ColorPattern pattern, SketchPoint at,
                                    const PatternSetting& setting);

/// The height of a normal pattern at a point, about 0 to 1.
[[nodiscard]] float NormalPatternAt(NormalPattern pattern, SketchPoint at,
                                    const PatternSetting& setting);

}  // namespace CorvexMaterial
