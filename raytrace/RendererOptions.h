#pragma once

#include "host/CorvexDB.h"

#include <cstdint>

namespace CorvexMaterial {

/// A group of raytrace attributes that a renderer honours or not as a whole.
enum class RaytraceOption : std::uint8_t {
    Brilliance,
    Reflection,
    Roughness,
    Metallic,
    Iridescence,
    ColorPattern,
    NormalPattern,
    PredefinedMaterial,
};

/// POV-Ray honours all of them. A RenderMan-compatible renderer is sure to have the shaders
/// `matte`, `plastic`, `metal`, `shinymetal` and `paintedplastic` only, so it honours what those
/// can say.
[[nodiscard]] bool Honours(CorvexDB::Raytracer raytracer, RaytraceOption option);

}  // namespace CorvexMaterial
