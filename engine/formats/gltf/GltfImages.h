#pragma once

#include "TextureReference.h"

#include <QJsonArray>
#include <QJsonObject>

#include <map>
#include <string>

namespace CorvexMaterial {
class FileSet;
}

namespace studio {

class GltfBuffer;

/// The images of a document that is written, each file once. The format knows PNG and JPEG; what is
/// of another type becomes a PNG.
class GltfImages {
public:
    /// Named relative to the document's folder, in whose `Textures/` are those that were made; with
    /// a buffer, which outlives this, inside of it. What cannot be read is named in any case. What
    /// is made goes again with the set of files, if there is one.
    GltfImages(std::string folder, GltfBuffer* inside, CorvexMaterial::FileSet* files);
    /// Of a document that has images and textures. Without `makesFiles` nothing is written, and
    /// what would be made is named as it is.
    GltfImages(std::string folder, qsizetype images, qsizetype textures, bool makesFiles);

    /// Says that the file is what a texture of the document shows.
    void Know(const std::string& file, int texture) { m_indexes.try_emplace(file, texture); }

    /// The number of its texture. Errors: FileFailed, when one cannot be written.
    int Take(const std::string& file);
    [[nodiscard]] bool HasAlpha(const std::string& file) { return m_alpha.In(file); }
    void AddTo(QJsonObject& document) const;
    // What the document does not have yet.
    [[nodiscard]] const QJsonArray& NewImages() const { return m_images; }
    [[nodiscard]] const QJsonArray& NewTextures() const { return m_textures; }

private:
    [[nodiscard]] QJsonObject ImageOf(const std::string& file) const;
    [[nodiscard]] QJsonObject Named(const std::string& file) const;

    std::string m_folder;
    GltfBuffer* m_inside = nullptr;
    CorvexMaterial::FileSet* m_files = nullptr;
    qsizetype m_firstImage = 0;
    qsizetype m_firstTexture = 0;
    bool m_makesFiles = true;
    std::map<std::string, int> m_indexes;
    QJsonArray m_images;
    QJsonArray m_textures;
    AlphaChannels m_alpha;
};

}  // namespace studio
