#pragma once

#include "host/CorvexDB.h"

#include <string>
#include <vector>

namespace CorvexMaterial {

/// POV-Ray takes no TIF texture, a RenderMan-compatible renderer nothing else. An unused layer, an
/// empty name, keeps every rule.
[[nodiscard]] bool TexturesFit(CorvexDB::Raytracer raytracer,
                               const std::vector<std::string>& files);

}  // namespace CorvexMaterial
