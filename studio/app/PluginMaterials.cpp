#include "studio/app/PluginMaterials.h"

#include "host/Status.h"
#include "studio/images/TextureCache.h"

namespace studio {
namespace {

constexpr std::size_t kKeptLayers = 64;

// The numbers of file textures count up from 1; these never meet them.
constexpr std::uint64_t kGeneratedIds = std::uint64_t{1} << 63;

enum class Layer : std::uint64_t { Color = 0, Bump = 1 };

// As between the threads of a cloth.
bool HasHole(const QImage& rgba)
{
    for (int y = 0; y < rgba.height(); ++y) {
        const uchar* row = rgba.constScanLine(y);
        for (int x = 0; x < rgba.width(); ++x) {
            if (row[4 * x + 3] != 255) {
                return true;
            }
        }
    }
    return false;
}

TexturePointer TextureOf(const QImage& image, std::uint64_t key, Layer layer)
{
    if (image.isNull()) {
        return nullptr;
    }
    auto texture = std::make_shared<Texture>();
    texture->id = kGeneratedIds | (key * 2 + static_cast<std::uint64_t>(layer));
    texture->image = image.convertToFormat(QImage::Format_RGBA8888);
    texture->hasAlpha = layer == Layer::Color && HasHole(texture->image);
    return texture;
}

}  // namespace

void PluginMaterials::Complete(Frame& frame)
{
    for (FrameItem& item : frame.items) {
        if (item.material != nullptr && !item.material->Plugin.empty()) {
            Put(item, m_textures.Find(item.material->Plugin, item.material->PluginParameters));
        }
    }
}

void PluginMaterials::CompleteNow(Frame& frame)
{
    for (FrameItem& item : frame.items) {
        if (item.material == nullptr || item.material->Plugin.empty()) {
            continue;
        }
        try {
            Put(item, m_textures.Produce(item.material->Plugin, item.material->PluginParameters));
        } catch (const CorvexMaterial::Error&) {
            continue;
        }
    }
}

void PluginMaterials::Put(FrameItem& item, const PluginTexture& texture)
{
    if (texture.color.isNull()) {
        return;
    }
    const Layers& layers = LayersOf(texture);
    item.generatedColor = layers.color;
    item.generatedBump = layers.bump;
}

const PluginMaterials::Layers& PluginMaterials::LayersOf(const PluginTexture& texture)
{
    const auto known = m_layers.find(texture.key);
    if (known != m_layers.end()) {
        return known->second;
    }
    if (m_layers.size() >= kKeptLayers) {
        m_layers.erase(m_layers.begin());
    }
    return m_layers
        .emplace(texture.key, Layers{TextureOf(texture.color, texture.key, Layer::Color),
                                     TextureOf(texture.bump, texture.key, Layer::Bump)})
        .first->second;
}

}  // namespace studio
