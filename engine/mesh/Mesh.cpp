#include "Mesh.h"

#include <algorithm>
#include <atomic>

namespace studio {
namespace {

std::uint64_t NextMeshId()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

void DropBrokenTriangles(std::vector<std::uint32_t>& indices, std::size_t vertexCount)
{
    std::size_t kept = 0;
    for (std::size_t first = 0; first + 2 < indices.size(); first += 3) {
        const bool inside = std::all_of(indices.begin() + static_cast<std::ptrdiff_t>(first),
                                        indices.begin() + static_cast<std::ptrdiff_t>(first + 3),
                                        [&](std::uint32_t index) { return index < vertexCount; });
        for (std::size_t corner = 0; inside && corner < 3; ++corner) {
            indices[kept++] = indices[first + corner];
        }
    }
    indices.resize(kept);
}

}  // namespace

float Bounds::Radius() const
{
    return Empty() ? 0.0F : (maximum - minimum).length() / 2.0F;
}

void Bounds::Include(const QVector3D& point)
{
    if (Empty()) {
        minimum = maximum = point;
        return;
    }
    for (int axis = 0; axis < 3; ++axis) {
        minimum[axis] = std::min(minimum[axis], point[axis]);
        maximum[axis] = std::max(maximum[axis], point[axis]);
    }
}

void Bounds::Include(const Bounds& other)
{
    if (!other.Empty()) {
        Include(other.minimum);
        Include(other.maximum);
    }
}

std::array<QVector3D, 8> Bounds::Corners() const
{
    std::array<QVector3D, 8> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = {(i & 1U) != 0 ? maximum.x() : minimum.x(),
                      (i & 2U) != 0 ? maximum.y() : minimum.y(),
                      (i & 4U) != 0 ? maximum.z() : minimum.z()};
    }
    return corners;
}

std::shared_ptr<const Mesh> MakeMesh(std::vector<Vertex> vertices,
                                     std::vector<std::uint32_t> indices)
{
    auto mesh = std::make_shared<Mesh>();
    DropBrokenTriangles(indices, vertices.size());
    for (const Vertex& vertex : vertices) {
        mesh->bounds.Include({vertex.position[0], vertex.position[1], vertex.position[2]});
    }
    mesh->vertices = std::move(vertices);
    mesh->indices = std::move(indices);
    mesh->id = NextMeshId();
    return mesh;
}

}  // namespace studio
