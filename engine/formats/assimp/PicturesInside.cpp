#include "PicturesInside.h"

#include <assimp/scene.h>

namespace studio {
namespace {

/// Nothing of what is no image file, or larger than what is left.
QByteArray BytesWithin(qsizetype left, const aiTexture* texture)
{
    const bool isFile = texture != nullptr && texture->mHeight == 0;
    if (!isFile || qsizetype{texture->mWidth} > left) {
        return {};
    }
    return {reinterpret_cast<const char*>(texture->pcData), qsizetype{texture->mWidth}};
}

}  // namespace

PicturesInside::PicturesInside(const aiScene& scene, std::vector<EmbeddedPicture>& pictures,
                               qsizetype mostBytes)
    : m_scene(scene), m_pictures(pictures), m_left(mostBytes)
{
}

void PicturesInside::Take(const std::string& name, std::size_t material)
{
    const aiTexture* texture = m_scene.GetEmbeddedTexture(name.c_str());
    if (texture == nullptr && !name.starts_with('*')) {
        return;
    }
    const auto [known, isNew] = m_indexes.try_emplace(name, m_pictures.size());
    if (isNew) {
        m_pictures.push_back({BytesWithin(m_left, texture), {}});
        m_left -= m_pictures.back().bytes.size();
    }
    m_pictures[known->second].wearers.push_back(material);
}

}  // namespace studio
