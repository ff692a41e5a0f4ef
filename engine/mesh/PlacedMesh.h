#pragma once

#include "Mesh.h"

#include <QMatrix4x4>

namespace studio {

/// Adds the mesh where the matrix puts it. Mirrored triangles are turned around, so that their
/// fronts stay in front.
void AppendPlaced(const Mesh& mesh, const QMatrix4x4& worldFromMesh, std::vector<Vertex>& vertices,
                  std::vector<std::uint32_t>& indices);

/// The mesh alone. Itself where the matrix leaves it.
[[nodiscard]] std::shared_ptr<const Mesh> PlacedMesh(const std::shared_ptr<const Mesh>& mesh,
                                                     const QMatrix4x4& worldFromMesh);

}  // namespace studio
