#pragma once

#include "studio/interchange/ImportedModel.h"

struct aiMesh;

namespace studio {

/// The triangles of a file's mesh. Corners that are no usable numbers take their triangles along;
/// missing normals are made up.
[[nodiscard]] ImportedMesh MeshFrom(const aiMesh& source);

}  // namespace studio
