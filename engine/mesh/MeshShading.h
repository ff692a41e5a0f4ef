#pragma once

#include "Mesh.h"

namespace studio {

/// The same triangles, each with corners of its own and one normal.
[[nodiscard]] std::shared_ptr<const Mesh> WithFlatNormals(const Mesh& mesh);

/// The same surface, vertices that are equal in everything made one. The given mesh when there are
/// none.
[[nodiscard]] std::shared_ptr<const Mesh> WithMergedPoints(std::shared_ptr<const Mesh> mesh);

}  // namespace studio
