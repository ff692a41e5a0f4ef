#pragma once

#include "Mesh.h"

#include <array>
#include <cstdint>
#include <vector>

namespace studio {

using Corners = std::array<std::uint32_t, 3>;
using TriangleList = std::vector<Corners>;

/// Without those that have none, of which a raytracer warns.
[[nodiscard]] TriangleList TrianglesWithArea(const Mesh& mesh);

/// Whether every edge belongs to two triangles, so that no back face can be seen.
[[nodiscard]] bool IsClosed(const Mesh& mesh);

}  // namespace studio
