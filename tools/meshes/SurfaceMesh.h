#pragma once

#include <CorvexMaterial/Vector.h>

#include <array>
#include <cstdint>
#include <vector>

namespace media {

using Vector = CorvexMaterial::Vector3<double>;

/// Right-handed, y up, v upward.
struct SurfacePoint {
    Vector position{};
    Vector normal{};
    double u = 0.0;
    double v = 0.0;
};

/// Triangles, counter-clockwise as seen from outside.
struct SurfaceMesh {
    std::vector<SurfacePoint> points;
    std::vector<std::array<std::uint32_t, 3>> triangles;

    /// Takes over a grid of points, row by row, and joins its neighbours: columns grow to the right
    /// and rows grow upward as seen from outside. Triangles without an area are left out.
    void AddGrid(const std::vector<SurfacePoint>& grid, std::uint32_t columns);
};

}  // namespace media
