#include "PlacedMesh.h"

#include "UnitVector.h"

namespace studio {
namespace {

Vertex Moved(Vertex vertex, const QMatrix4x4& worldFromMesh, const QMatrix4x4& normals)
{
    const auto& [px, py, pz] = vertex.position;
    const auto& [nx, ny, nz] = vertex.normal;
    const QVector3D position = worldFromMesh.map(QVector3D(px, py, pz));
    const QVector3D normal = UnitOr(normals.mapVector({nx, ny, nz}), {0.0F, 1.0F, 0.0F});
    vertex.position = {position.x(), position.y(), position.z()};
    vertex.normal = {normal.x(), normal.y(), normal.z()};
    return vertex;
}

}  // namespace

void AppendPlaced(const Mesh& mesh, const QMatrix4x4& worldFromMesh, std::vector<Vertex>& vertices,
                  std::vector<std::uint32_t>& indices)
{
    const auto first = static_cast<std::uint32_t>(vertices.size());
    const QMatrix4x4 normals = worldFromMesh.inverted().transposed();
    for (const Vertex& vertex : mesh.vertices) {
        vertices.push_back(Moved(vertex, worldFromMesh, normals));
    }
    const bool mirrored = worldFromMesh.determinant() < 0.0F;
    for (std::size_t corner = 0; corner + 2 < mesh.indices.size(); corner += 3) {
        const std::uint32_t* triangle = &mesh.indices[corner];
        indices.insert(indices.end(), {first + triangle[0], first + triangle[mirrored ? 2 : 1],
                                       first + triangle[mirrored ? 1 : 2]});
    }
}

std::shared_ptr<const Mesh> PlacedMesh(const std::shared_ptr<const Mesh>& mesh,
                                       const QMatrix4x4& worldFromMesh)
{
    if (worldFromMesh.isIdentity()) {
        return mesh;
    }
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    vertices.reserve(mesh->vertices.size());
    indices.reserve(mesh->indices.size());
    AppendPlaced(*mesh, worldFromMesh, vertices, indices);
    return MakeMesh(std::move(vertices), std::move(indices));
}

}  // namespace studio
