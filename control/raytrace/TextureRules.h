#pragma once

#include "Raytracers.h"

#include <string>
#include <vector>

namespace CorvexMaterial {

/// An unused layer, an empty name, keeps every rule.
[[nodiscard]] bool TexturesFit(TiffRule rule, const std::vector<std::string>& files);

}  // namespace CorvexMaterial
