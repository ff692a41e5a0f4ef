#pragma once

#include "ImportedModel.h"

namespace studio {

/// A Wavefront OBJ file with the materials of the libraries that it names. Errors: FileFailed
/// naming file and cause.
[[nodiscard]] ImportedModel ReadObj(const std::string& path);

/// The materials of a Wavefront MTL file. Errors: as above.
[[nodiscard]] ImportedModel ReadMtl(const std::string& path);

}  // namespace studio
