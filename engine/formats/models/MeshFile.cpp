#include "MeshFile.h"

#include "Formats.h"
#include "UnitVector.h"
#include <CorvexMaterial/Status.h>

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

void Append(const Mesh& mesh, const QMatrix4x4& worldFromMesh, std::vector<Vertex>& vertices,
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

}  // namespace

std::shared_ptr<const Mesh> ReadMeshFile(const std::string& path)
{
    const ImportedModel model = ReadModel(path);
    if (model.shapes.size() == 1 && model.shapes.front().worldFromMesh.isIdentity()) {
        return model.meshes[model.shapes.front().mesh].mesh;
    }
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    for (const ImportedShape& shape : model.shapes) {
        Append(*model.meshes[shape.mesh].mesh, shape.worldFromMesh, vertices, indices);
    }
    return MakeMesh(std::move(vertices), std::move(indices));
}

}  // namespace studio
