#include "studio/interchange/assimp/AssimpMesh.h"

#include "studio/render/UnitVector.h"

#include <assimp/mesh.h>

#include <algorithm>
#include <cmath>
#include <span>

namespace studio {

namespace {

QVector3D From(const aiVector3D& vector)
{
    return {vector.x, vector.y, vector.z};
}

bool Usable(const aiVector3D& point)
{
    const auto usable = [](float value) { return std::abs(value) <= kLargestCoordinate; };
    return usable(point.x) && usable(point.y) && usable(point.z);
}

QVector3D UnitFrom(const aiVector3D& vector, const QVector3D& otherwise)
{
    return Usable(vector) ? UnitOr(From(vector), otherwise) : otherwise;
}

Vertex VertexAt(const aiMesh& source, unsigned int index)
{
    Vertex vertex;
    const QVector3D position =
        Usable(source.mVertices[index]) ? From(source.mVertices[index]) : QVector3D();
    const QVector3D up(0.0F, 1.0F, 0.0F);
    const QVector3D normal = source.HasNormals() ? UnitFrom(source.mNormals[index], up) : up;
    vertex.position = {position.x(), position.y(), position.z()};
    vertex.normal = {normal.x(), normal.y(), normal.z()};
    if (source.HasTextureCoords(0) && Usable(source.mTextureCoords[0][index])) {
        vertex.uv = {source.mTextureCoords[0][index].x, source.mTextureCoords[0][index].y};
    }
    return vertex;
}

/// Some programs write null vectors for normals, or what is none.
bool HasDirection(const aiMesh& source, unsigned int index)
{
    return source.HasNormals() && Usable(source.mNormals[index]) &&
           source.mNormals[index] != aiVector3D();
}

/// Triangles whose corners have no direction face where they face, with corners of their own.
void FaceByThemselves(const aiMesh& source, std::vector<Vertex>& vertices,
                      std::vector<std::uint32_t>& indices)
{
    for (std::size_t first = 0; first < indices.size(); first += 3) {
        const auto corners = std::span(indices).subspan(first, 3);
        if (std::ranges::all_of(corners, [&](auto i) { return HasDirection(source, i); })) {
            continue;
        }
        const QVector3D normal =
            FaceNormal(From(source.mVertices[corners[0]]), From(source.mVertices[corners[1]]),
                       From(source.mVertices[corners[2]]));
        for (std::uint32_t& corner : corners) {
            Vertex own = vertices[corner];
            own.normal = {normal.x(), normal.y(), normal.z()};
            corner = static_cast<std::uint32_t>(vertices.size());
            vertices.push_back(own);
        }
    }
}

std::vector<std::uint32_t> TrianglesOf(const aiMesh& source)
{
    std::vector<std::uint32_t> indices;
    indices.reserve(std::size_t{3} * source.mNumFaces);
    for (unsigned int face = 0; face < source.mNumFaces; ++face) {
        const aiFace& corners = source.mFaces[face];
        if (corners.mNumIndices == 3 && Usable(source.mVertices[corners.mIndices[0]]) &&
            Usable(source.mVertices[corners.mIndices[1]]) &&
            Usable(source.mVertices[corners.mIndices[2]])) {
            indices.insert(indices.end(), corners.mIndices, corners.mIndices + 3);
        }
    }
    return indices;
}

}  // namespace

ImportedMesh MeshFrom(const aiMesh& source)
{
    std::vector<Vertex> vertices;
    vertices.reserve(source.mNumVertices);
    for (unsigned int index = 0; index < source.mNumVertices; ++index) {
        vertices.push_back(VertexAt(source, index));
    }
    std::vector<std::uint32_t> indices = TrianglesOf(source);
    FaceByThemselves(source, vertices, indices);
    return {MakeMesh(std::move(vertices), std::move(indices)), source.mMaterialIndex,
            source.HasTextureCoords(0)};
}

}  // namespace studio
