#include "studio/interchange/assimp/AssimpReader.h"

#include "host/Status.h"
#include "studio/interchange/ShapeNames.h"
#include "studio/interchange/assimp/AssimpMaterial.h"
#include "studio/interchange/assimp/AssimpMesh.h"
#include "studio/interchange/assimp/GuardedFiles.h"
#include "studio/interchange/assimp/PicturesInside.h"
#include "studio/interchange/assimp/VertexColours.h"
#include "studio/render/UnitVector.h"

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace studio {

namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

QMatrix4x4 MatrixFrom(const aiMatrix4x4& source)
{
    QMatrix4x4 matrix;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            const float value = source[static_cast<unsigned int>(row)][column];
            if (!(std::abs(value) <= kLargestCoordinate)) {
                return {};
            }
            matrix(row, column) = value;
        }
    }
    return matrix;
}

struct NodeVisit {
    const aiNode* node;
    aiMatrix4x4 worldFromParent;
};

// With a list of its own instead of recursion: the depth of a file's nodes is the file's choice.
void AddShapes(const aiScene& scene, ImportedModel& model)
{
    std::vector<NodeVisit> open{{scene.mRootNode, aiMatrix4x4()}};
    while (!open.empty()) {
        const NodeVisit visit = open.back();
        open.pop_back();
        const aiMatrix4x4 worldFromNode = visit.worldFromParent * visit.node->mTransformation;
        for (unsigned int use = 0; use < visit.node->mNumMeshes; ++use) {
            const unsigned int mesh = visit.node->mMeshes[use];
            const aiString& own = scene.mMeshes[mesh]->mName;
            const aiString& name = own.length > 0 ? own : visit.node->mName;
            const std::string numbered = "Shape " + std::to_string(model.shapes.size() + 1);
            model.shapes.push_back({ReadableName({name.data, name.length}, numbered), mesh,
                                    MatrixFrom(worldFromNode)});
        }
        for (unsigned int child = visit.node->mNumChildren; child > 0; --child) {
            open.push_back({visit.node->mChildren[child - 1], worldFromNode});
        }
    }
}

void Configure(Assimp::Importer& importer)
{
    // Smooth a curved surface, keep the edges of a box.
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, 60.0F);
    importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE,
                                aiPrimitiveType_POINT | aiPrimitiveType_LINE);
}

constexpr unsigned int kSteps = aiProcess_Triangulate | aiProcess_JoinIdenticalVertices |
                                aiProcess_GenSmoothNormals | aiProcess_SortByPType |
                                aiProcess_ValidateDataStructure;

[[noreturn]] void Refuse(const std::string& path, const std::string& reason)
{
    if (reason.find("bad_alloc") != std::string::npos) {
        throw Error(Status::OutOfMemory, path + ": there is not enough memory for it");
    }
    throw Error(Status::FileFailed, path + ": " + reason);
}

// Relative to the model, or beside it when the path is another machine's. One that is not there is
// kept, so that it shows as missing and can be looked for; one inside the file has no path.
std::string TexturePath(const std::string& modelPath, std::string texture)
{
    if (texture.empty() || texture.starts_with('*')) {
        return {};
    }
    std::ranges::replace(texture, '\\', '/');
    const std::filesystem::path folder = std::filesystem::path(modelPath).parent_path();
    const std::filesystem::path named = (folder / texture).lexically_normal();
    const std::filesystem::path beside = folder / named.filename();
    std::error_code error;
    const bool isMoved = !std::filesystem::is_regular_file(named, error) &&
                         std::filesystem::is_regular_file(beside, error);
    return isMoved ? beside.string() : named.string();
}

// All of a model's together.
constexpr qsizetype kMostModelPictureBytes = qsizetype{512} << 20;

void AddMaterials(const aiScene& scene, const std::string& path, ImportedModel& model)
{
    PicturesInside pictures(scene, model.pictures, kMostModelPictureBytes);
    for (unsigned int index = 0; index < scene.mNumMaterials; ++index) {
        auto material = MaterialFrom(*scene.mMaterials[index]);
        CorvexDB::TextureFiles& textures = material.Textures;
        const std::string primary = textures.primary;
        for (std::string* texture :
             {&textures.primary, &textures.alpha, &textures.bump, &textures.specular}) {
            *texture = TexturePath(path, *texture);
        }
        if (textures.alpha == textures.primary) {
            textures.alpha.clear();  // the alpha of the primary image counts anyway
        }
        std::error_code error;
        if (!primary.empty() && !std::filesystem::is_regular_file(textures.primary, error)) {
            pictures.Take(primary, index);
        }
        model.materials.push_back(std::move(material));
    }
}

ImportedModel ModelFrom(const aiScene& scene, const std::string& path)
{
    ImportedModel model;
    AddMaterials(scene, path, model);
    model.manyColours = TakeVertexColours(scene, model.materials);
    for (unsigned int index = 0; index < scene.mNumMeshes; ++index) {
        model.meshes.push_back(MeshFrom(*scene.mMeshes[index]));
    }
    AddShapes(scene, model);
    return model;
}

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

ImportedModel ReadModelFile(const std::string& path)
{
    std::string refused;
    Assimp::Importer importer;
    importer.SetIOHandler(new GuardedFiles(refused));
    Configure(importer);
    const aiScene* scene = importer.ReadFile(path, kSteps);
    if (scene == nullptr && !refused.empty()) {
        throw Error(Status::FileFailed, refused);
    }
    if (scene == nullptr) {
        Refuse(path, importer.GetErrorString());
    }
    if (scene->mRootNode == nullptr) {
        Refuse(path, "the file holds no scene");
    }
    ImportedModel model = ModelFrom(*scene, path);
    model.refusedFile = refused;
    const auto hasSurface = [](const ImportedMesh& mesh) { return !mesh.mesh->indices.empty(); };
    if (model.shapes.empty() || std::ranges::none_of(model.meshes, hasSurface)) {
        Refuse(path, "the file holds no surface");
    }
    return model;
}

std::shared_ptr<const Mesh> ReadMeshFile(const std::string& path)
{
    const ImportedModel model = ReadModelFile(path);
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
