#include "studio/import/ShapeNames.h"
#include "studio/interchange/DocumentFile.h"
#include "studio/interchange/GltfMaterials.h"
#include "studio/interchange/GltfSurface.h"

#include <assimp/Importer.hpp>
#include <assimp/material.h>
#include <assimp/scene.h>

#include <QCoreApplication>

#include <map>
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

/// The pictures inside a file, each once.
class PicturesInside {
public:
    PicturesInside(const aiScene& scene, ImportedMaterials& imported)
        : m_scene(scene), m_imported(imported)
    {
    }

    /// Takes the material's, if it has one.
    void Take(const aiMaterial& source, std::size_t material)
    {
        const std::string name = BaseImageOf(source);
        if (name.empty() || name.front() != '*') {
            return;
        }
        const auto [known, isNew] = m_indexes.try_emplace(name, m_imported.pictures.size());
        if (isNew) {
            m_imported.pictures.push_back({BytesOf(name), {}});
        }
        m_imported.pictures[known->second].wearers.push_back(material);
    }

private:
    /// Nothing of what is no image file, or too large.
    QByteArray BytesOf(const std::string& name)
    {
        const aiTexture* texture = m_scene.GetEmbeddedTexture(name.c_str());
        const bool isFile = texture != nullptr && texture->mHeight == 0;
        const qsizetype size = isFile ? qsizetype{texture->mWidth} : 0;
        if (size == 0 || size > m_left) {
            return {};
        }
        m_left -= size;
        return {reinterpret_cast<const char*>(texture->pcData), size};
    }

    const aiScene& m_scene;
    ImportedMaterials& m_imported;
    std::map<std::string, std::size_t> m_indexes;
    qsizetype m_left = kMostPictureBytes;
};

}  // namespace

ImportedMaterials ReadWornMaterials(const std::string& path)
{
    Assimp::Importer importer;
    const aiScene* scene = importer.ReadFile(path, 0);
    if (scene == nullptr) {
        RefuseDocument(path, importer.GetErrorString());
    }
    const std::string folder = FolderOfDocument(path);
    ImportedMaterials imported;
    PicturesInside pictures(*scene, imported);
    for (const unsigned int index : WornIn(*scene)) {
        if (index >= scene->mNumMaterials) {
            continue;
        }
        const aiMaterial& source = *scene->mMaterials[index];
        const std::size_t number = imported.materials.size();
        const std::string name = NameOf(source, number + 1);
        imported.materials.push_back(
            {name, MaterialOfGltf(source, folder, MaterialNotes(imported.report, name))});
        pictures.Take(source, number);
    }
    return imported;
}

}  // namespace studio
