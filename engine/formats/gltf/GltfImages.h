#pragma once

#include "TextureReference.h"

#include <QJsonArray>
#include <QJsonObject>

#include <map>
#include <string>

namespace studio {

class GltfBuffer;

/// The images of a document that is written, each file once. The format knows PNG and JPEG; what is
/// of another type becomes a PNG.
class GltfImages {
public:
    /// Named relative to the document's folder, in whose `Textures/` are those that were made; with
    /// a buffer, which outlives this, inside of it. What cannot be read is named in any case.
    GltfImages(std::string folder, GltfBuffer* inside);

    /// The number of its texture. Errors: FileFailed, when one cannot be written.
    int Take(const std::string& file);
    [[nodiscard]] bool HasAlpha(const std::string& file) { return m_alpha.In(file); }
    void AddTo(QJsonObject& document) const;

private:
    [[nodiscard]] QJsonObject ImageOf(const std::string& file) const;
    [[nodiscard]] QJsonObject Named(const std::string& file) const;

    std::string m_folder;
    GltfBuffer* m_inside;
    std::map<std::string, int> m_indexes;
    QJsonArray m_images;
    QJsonArray m_textures;
    AlphaChannels m_alpha;
};

}  // namespace studio
