#include "host/Status.h"
#include "studio/interchange/DocumentFile.h"
#include "studio/interchange/ShapeNames.h"
#include "studio/interchange/assimp/GuardedFiles.h"
#include "studio/interchange/assimp/PicturesInside.h"
#include "studio/interchange/gltf/GltfMaterials.h"
#include "studio/interchange/gltf/GltfSurface.h"

#include <assimp/Importer.hpp>
#include <assimp/material.h>
#include <assimp/scene.h>

#include <QCoreApplication>

#include <set>

namespace studio {
namespace {

/// All pictures of a file; more does not fit into the answer.
constexpr qsizetype kMostPictureBytes = kMostDocumentBytes / 2;

std::set<unsigned int> WornIn(const aiScene& scene)
{
    std::set<unsigned int> worn;
    for (unsigned int mesh = 0; mesh < scene.mNumMeshes; ++mesh) {
        worn.insert(scene.mMeshes[mesh]->mMaterialIndex);
    }
    return worn;
}

std::string NameOf(const aiMaterial& source, std::size_t number)
{
    aiString raw;
    const bool named = source.Get(AI_MATKEY_NAME, raw) == AI_SUCCESS;
    return ReadableName(named ? std::string_view(raw.data, raw.length) : std::string_view(),
                        "Material " + std::to_string(number));
}

}  // namespace

ImportedMaterials ReadWornMaterials(const std::string& path)
{
    std::string refused;
    Assimp::Importer importer;
    importer.SetIOHandler(new GuardedFiles(refused));
    const aiScene* scene = importer.ReadFile(path, 0);
    if (scene == nullptr && !refused.empty()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, refused);
    }
    if (scene == nullptr) {
        RefuseDocument(path, importer.GetErrorString());
    }
    const std::string folder = FolderOfDocument(path);
    ImportedMaterials imported;
    PicturesInside pictures(*scene, imported.pictures, kMostPictureBytes);
    for (const unsigned int index : WornIn(*scene)) {
        if (index >= scene->mNumMaterials) {
            continue;
        }
        const aiMaterial& source = *scene->mMaterials[index];
        const std::size_t number = imported.materials.size();
        const std::string name = NameOf(source, number + 1);
        imported.materials.push_back(
            {name, MaterialOfGltf(source, folder, MaterialNotes(imported.report, name))});
        if (const std::string picture = BaseImageOf(source); picture.starts_with('*')) {
            pictures.Take(picture, number);
        }
    }
    return imported;
}

}  // namespace studio
