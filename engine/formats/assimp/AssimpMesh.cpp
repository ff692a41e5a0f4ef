#include "AssimpMesh.h"

#include <assimp/mesh.h>

namespace studio {

namespace {

std::array<float, 3> From(const aiVector3D& vector)
{
    return {vector.x, vector.y, vector.z};
}

}  // namespace

RawMesh MeshFrom(const aiMesh& source)
{
    RawMesh raw;
    raw.material = source.mMaterialIndex;
    raw.hasCoordinates = source.HasTextureCoords(0);
    raw.hasNormals = source.HasNormals();
    raw.vertices.resize(source.mNumVertices);
    for (unsigned int index = 0; index < source.mNumVertices; ++index) {
        Vertex& vertex = raw.vertices[index];
        vertex.position = From(source.mVertices[index]);
        if (raw.hasNormals) {
            vertex.normal = From(source.mNormals[index]);
        }
        if (raw.hasCoordinates) {
            vertex.uv = {source.mTextureCoords[0][index].x, source.mTextureCoords[0][index].y};
        }
        if (source.HasVertexColors(0)) {
            const aiColor4D& colour = source.mColors[0][index];
            raw.colours.push_back({colour.r, colour.g, colour.b});
        }
    }
    raw.indices.reserve(std::size_t{3} * source.mNumFaces);
    for (unsigned int face = 0; face < source.mNumFaces; ++face) {
        const aiFace& corners = source.mFaces[face];
        if (corners.mNumIndices == 3) {
            raw.indices.insert(raw.indices.end(), corners.mIndices, corners.mIndices + 3);
        }
    }
    return raw;
}

}  // namespace studio
