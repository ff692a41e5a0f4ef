#include "PluginMaterials.h"

#include "DropOldest.h"
#include "TextureCache.h"
#include <CorvexMaterial/Status.h>

#include <algorithm>

namespace studio {
namespace {

// Twice what the textures themselves may take: heights are one byte there and four here.
constexpr std::int64_t kMostBytes = 256 * 1024 * 1024;

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

PluginTexture ProducedOrNone(PluginTextures& textures, const CorvexDB::udtMaterial& material)
{
    try {
        return textures.Produce(material.Plugin, material.PluginParameters);
    } catch (const CorvexMaterial::Error&) {
        return {};
    }
}

}  // namespace

std::int64_t PluginMaterials::Layers::Bytes() const
{
    return color->image.sizeInBytes() + (bump ? bump->image.sizeInBytes() : 0);
}

void PluginMaterials::Complete(Frame& frame)
{
    ++m_round;
    for (FrameItem& item : frame.items) {
        if (item.material != nullptr && !item.material->Plugin.empty()) {
            Put(item, m_textures.Find(item.material->Plugin, item.material->PluginParameters),
                m_round);
        }
    }
    m_textures.EndRound();
    DropOld();
}

void PluginMaterials::CompleteNow(Frame& frame)
{
    std::map<std::pair<std::string, std::vector<float>>, PluginTexture> produced;
    for (FrameItem& item : frame.items) {
        if (item.material == nullptr || item.material->Plugin.empty()) {
            continue;
        }
        const CorvexDB::udtMaterial& material = *item.material;
        const auto [found, isNew] =
            produced.try_emplace({material.Plugin, material.PluginParameters});
        if (isNew) {
            found->second = ProducedOrNone(m_textures, material);
        }
        Put(item, found->second, 0);
    }
    DropOld();
}

void PluginMaterials::Put(FrameItem& item, const PluginTexture& texture, std::uint64_t round)
{
    if (texture.color.isNull()) {
        return;
    }
    Layers& layers = LayersOf(texture);
    layers.lastUse = std::max(layers.lastUse, round);
    item.generatedColor = layers.color;
    item.generatedBump = layers.bump;
}

PluginMaterials::Layers& PluginMaterials::LayersOf(const PluginTexture& texture)
{
    const auto known = m_layers.find(texture.key);
    if (known != m_layers.end()) {
        return known->second;
    }
    return m_layers
        .emplace(texture.key, Layers{TextureOf(texture.color, texture.key, Layer::Color),
                                     TextureOf(texture.bump, texture.key, Layer::Bump)})
        .first->second;
}

/// What the views show stays, however much it is.
void PluginMaterials::DropOld()
{
    DropOldest(m_layers, kMostBytes, [this](const Layers& layers) {
        return layers.lastUse + PluginTextures::kKeptRounds <= m_round;
    });
}

}  // namespace studio
