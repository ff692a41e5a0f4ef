#pragma once

#include "PovRayJob.h"
#include "RenderManJob.h"

#include <array>

namespace CorvexMaterial {

/// For those whose own tables follow it; the others take `Raytracers()`.
inline constexpr std::array kRaytracerRows{kPovRay, kRenderMan};

}  // namespace CorvexMaterial
