#pragma once

// What stands in a document's file, by what the studio holds. Errors of all functions: FileFailed.

#include "DocumentTextures.h"
#include "SceneContent.h"
#include <CorvexMaterial/Schema.h>

namespace studio {

struct DocumentRows {
    struct Mesh {
        std::int64_t id = 0;
        std::shared_ptr<const studio::Mesh> mesh;  ///< so that its address is nobody else's
    };
    struct Material {
        std::int64_t id = 0;
        std::set<std::string> embedded;  ///< what it says of pictures inside the document
    };

    explicit DocumentRows(const std::string& pictureFolder) : textures(pictureFolder) {}

    std::map<std::uint64_t, Mesh> meshes;  ///< by the mesh's id
    std::map<MaterialKey, Material> materials;
    DocumentTextures textures;
    SceneContent content;
    bool hasGaps = false;  ///< the shapes' places in the file are not those in the content
};

/// Brings the file to what the content is, and the rows with it. In a transaction: after an error
/// neither can be used.
void SaveRows(Database& database, const std::string& folder, DocumentRows& rows,
              const SceneContent& content);

/// Takes a file's content over into empty rows. A problem is what has its default now, for a
/// person. In a transaction.
void LoadRows(Database& database, const std::string& folder, DocumentRows& rows,
              std::vector<std::string>& problems);

/// Puts what the function gives for the file of each layer in its place, unless that is nothing.
template <typename Other>
void ReplaceTextures(CorvexDB::udtMaterial& material, const Other& other)
{
    for (const CorvexMaterial::Attribute layer : CorvexMaterial::kTextureFiles) {
        const auto& path = CorvexMaterial::RowOf(layer).path;
        if (auto replacement = other(std::get<std::string>(path.get(material)))) {
            path.set(material, *std::move(replacement));
        }
    }
}

}  // namespace studio
