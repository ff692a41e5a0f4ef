#include "TriangleList.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace studio {
namespace {

QVector3D FinitePosition(const Vertex& vertex)
{
    const auto finite = [](float value) { return std::isfinite(value) ? value : 0.0F; };
    return {finite(vertex.position[0]), finite(vertex.position[1]), finite(vertex.position[2])};
}

using Edge = std::pair<std::uint32_t, std::uint32_t>;
struct EdgeHash {
    std::size_t operator()(const Edge& edge) const
    {
        return std::hash<std::uint64_t>()(std::uint64_t{edge.first} << 32U | edge.second);
    }
};

/// Vertices in one place count as one, whatever their normals and texture coordinates.
std::vector<std::uint32_t> WeldedVertices(const Mesh& mesh)
{
    const float step = std::max(mesh.bounds.Radius(), 1.0e-20F) * 1.0e-5F;
    const auto cell = [step](float value) {
        return static_cast<std::uint64_t>(static_cast<std::int64_t>(std::lround(value / step)));
    };
    std::unordered_map<std::uint64_t, std::uint32_t> places;
    std::vector<std::uint32_t> welded;
    welded.reserve(mesh.vertices.size());
    for (const Vertex& vertex : mesh.vertices) {
        const QVector3D p = FinitePosition(vertex);
        const std::uint64_t place = (cell(p.x()) * 73856093U) ^ (cell(p.y()) * 19349663U << 20U) ^
                                    (cell(p.z()) * 83492791U << 40U);
        welded.push_back(
            places.emplace(place, static_cast<std::uint32_t>(welded.size())).first->second);
    }
    return welded;
}

}  // namespace

TriangleList TrianglesWithArea(const Mesh& mesh)
{
    TriangleList triangles;
    triangles.reserve(mesh.indices.size() / 3);
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const Corners corners{mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
        const QVector3D a = FinitePosition(mesh.vertices[corners[0]]);
        const QVector3D ab = FinitePosition(mesh.vertices[corners[1]]) - a;
        const QVector3D ac = FinitePosition(mesh.vertices[corners[2]]) - a;
        const float longest = std::max(ab.lengthSquared(), ac.lengthSquared());
        if (QVector3D::crossProduct(ab, ac).length() > 1.0e-7F * longest && longest > 0.0F) {
            triangles.push_back(corners);
        }
    }
    return triangles;
}

bool IsClosed(const Mesh& mesh)
{
    const std::vector<std::uint32_t> welded = WeldedVertices(mesh);
    std::unordered_map<Edge, int, EdgeHash> open;
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        for (std::size_t k = 0; k < 3; ++k) {
            const std::uint32_t from = welded[mesh.indices[i + k]];
            const std::uint32_t to = welded[mesh.indices[i + (k + 1) % 3]];
            if (from != to) {
                open[{std::min(from, to), std::max(from, to)}] += from < to ? 1 : -1;
            }
        }
    }
    return std::all_of(open.begin(), open.end(), [](const auto& edge) { return edge.second == 0; });
}

}  // namespace studio
