#pragma once

#include "raytracers/PovRayJob.h"
#include "raytracers/RenderManJob.h"

#include <array>

namespace CorvexMaterial {

/// For those whose own tables follow it; the others take `Raytracers()`.
inline constexpr std::array kRaytracerRows{kPovRay, kRenderMan};

}  // namespace CorvexMaterial
