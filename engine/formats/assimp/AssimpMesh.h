#pragma once

#include "MeshFinishing.h"

struct aiMesh;

namespace studio {

/// The triangles of a file's mesh.
[[nodiscard]] RawMesh MeshFrom(const aiMesh& source);

}  // namespace studio
