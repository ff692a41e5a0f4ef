#include "SurfaceMesh.h"

#include <cmath>

namespace media {
namespace {

double Area(const Vector& a, const Vector& b, const Vector& c)
{
    const Vector p{b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const Vector q{c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    return std::hypot(p[1] * q[2] - p[2] * q[1], p[2] * q[0] - p[0] * q[2],
                      p[0] * q[1] - p[1] * q[0]) /
           2.0;
}

void AddTriangle(SurfaceMesh& mesh, const std::array<std::uint32_t, 3>& corners)
{
    constexpr double kNoArea = 1e-9;
    const auto position = [&](std::size_t corner) { return mesh.points[corners[corner]].position; };
    if (Area(position(0), position(1), position(2)) > kNoArea) {
        mesh.triangles.push_back(corners);
    }
}

}  // namespace

void SurfaceMesh::AddGrid(const std::vector<SurfacePoint>& grid, std::uint32_t columns)
{
    const auto first = static_cast<std::uint32_t>(points.size());
    const auto rows = static_cast<std::uint32_t>(grid.size()) / columns;
    points.insert(points.end(), grid.begin(), grid.end());
    for (std::uint32_t row = 0; row + 1 < rows; ++row) {
        for (std::uint32_t column = 0; column + 1 < columns; ++column) {
            const std::uint32_t corner = first + row * columns + column;
            const std::uint32_t above = corner + columns;
            AddTriangle(*this, {corner, corner + 1, above + 1});
            AddTriangle(*this, {corner, above + 1, above});
        }
    }
}

}  // namespace media
