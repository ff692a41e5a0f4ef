#pragma once

#include "ImportedModel.h"

#include <span>

namespace studio {

/// A scene of spheres side by side, one for each of the materials and named like it; all share one
/// mesh.
[[nodiscard]] ImportedModel SpheresWearing(std::span<const NamedMaterial> materials);

}  // namespace studio
