#include "MeshShading.h"

#include "UnitVector.h"

#include <string_view>
#include <unordered_map>

namespace studio {

namespace {

QVector3D PositionOf(const Vertex& vertex)
{
    return {vertex.position[0], vertex.position[1], vertex.position[2]};
}

std::string_view BytesOf(const Vertex& vertex)
{
    return {reinterpret_cast<const char*>(&vertex), sizeof(Vertex)};
}

}  // namespace

std::shared_ptr<const Mesh> WithFlatNormals(const Mesh& mesh)
{
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    vertices.reserve(mesh.indices.size());
    indices.reserve(mesh.indices.size());
    for (std::size_t corner = 0; corner + 2 < mesh.indices.size(); corner += 3) {
        const std::array corners{mesh.vertices[mesh.indices[corner]],
                                 mesh.vertices[mesh.indices[corner + 1]],
                                 mesh.vertices[mesh.indices[corner + 2]]};
        const QVector3D normal =
            FaceNormal(PositionOf(corners[0]), PositionOf(corners[1]), PositionOf(corners[2]));
        for (Vertex vertex : corners) {
            vertex.normal = {normal.x(), normal.y(), normal.z()};
            indices.push_back(static_cast<std::uint32_t>(vertices.size()));
            vertices.push_back(vertex);
        }
    }
    return MakeMesh(std::move(vertices), std::move(indices));
}

std::shared_ptr<const Mesh> WithMergedPoints(std::shared_ptr<const Mesh> mesh)
{
    if (mesh == nullptr) {
        return mesh;
    }
    std::unordered_map<std::string_view, std::uint32_t> known;
    known.reserve(mesh->vertices.size());
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> mergedFrom;
    mergedFrom.reserve(mesh->vertices.size());
    for (const Vertex& vertex : mesh->vertices) {
        const auto [entry, isNew] =
            known.try_emplace(BytesOf(vertex), static_cast<std::uint32_t>(vertices.size()));
        if (isNew) {
            vertices.push_back(vertex);
        }
        mergedFrom.push_back(entry->second);
    }
    if (vertices.size() == mesh->vertices.size()) {
        return mesh;
    }
    std::vector<std::uint32_t> indices = mesh->indices;
    for (std::uint32_t& index : indices) {
        index = mergedFrom[index];
    }
    return MakeMesh(std::move(vertices), std::move(indices));
}

}  // namespace studio
