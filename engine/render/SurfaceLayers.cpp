#include "SurfaceLayers.h"

#include "Frame.h"

namespace studio {
namespace {

constexpr std::uint32_t Bit(Layer layer)
{
    return 1U << static_cast<std::size_t>(layer);
}

}  // namespace

PrimaryAlpha PrimaryAlphaUse(const CorvexDB::udtMaterial& material, const Texture& texture)
{
    if (!texture.hasAlpha) {
        return PrimaryAlpha::Nothing;
    }
    switch (material.TextureAlphaChannelUse) {
    case 0:
        return material.AlphaIsTransparent ? PrimaryAlpha::InverseOpacity : PrimaryAlpha::Opacity;
    case 2:
        return PrimaryAlpha::Height;
    case 3:
        return PrimaryAlpha::Highlight;
    case 4:
        return PrimaryAlpha::Reflection;
    default:
        return PrimaryAlpha::Nothing;
    }
}

const TexturePointer& GeneratedTexture(const FrameItem& item, Layer layer)
{
    static const TexturePointer kNone;
    return layer == Layer::Primary ? item.generatedColor
           : layer == Layer::Bump  ? item.generatedBump
                                   : kNone;
}

bool LayerSet::ChangesOpacity() const
{
    return Has(Layer::Alpha) || primaryAlpha == PrimaryAlpha::Opacity ||
           primaryAlpha == PrimaryAlpha::InverseOpacity;
}

bool LayerSet::ChangesHighlight() const
{
    return Has(Layer::Specular) || primaryAlpha == PrimaryAlpha::Highlight;
}

LayerSet LayerSet::OpacityOnly() const
{
    LayerSet set{present & Bit(Layer::Alpha), PrimaryAlpha::Nothing};
    if (primaryAlpha == PrimaryAlpha::Opacity || primaryAlpha == PrimaryAlpha::InverseOpacity) {
        set.present |= Bit(Layer::Primary);
        set.primaryAlpha = primaryAlpha;
    }
    return set;
}

SurfaceLayers FrameTextures::LayersOf(const FrameItem& item, const CorvexDB::udtMaterial& material)
{
    SurfaceLayers layers;
    for (std::size_t i = 0; i < kLayerCount; ++i) {
        const LayerRow& row = kLayerRows[i];
        const TexturePointer& generated = GeneratedTexture(item, static_cast<Layer>(i));
        const TexturePointer& texture =
            generated ? generated : TextureOf(material.Textures.*row.file);
        if (texture == nullptr) {
            continue;
        }
        layers.textures[i] = m_buffers.TextureOf(texture, row.use);
        layers.set.present |= 1U << i;
        if (static_cast<Layer>(i) == Layer::Primary) {
            layers.set.primaryAlpha = PrimaryAlphaUse(material, *texture);
        }
    }
    return layers;
}

const TexturePointer& FrameTextures::TextureOf(const std::string& path)
{
    static const TexturePointer kNone;
    if (path.empty() || !m_lookup) {
        return kNone;
    }
    const auto found = m_found.find(path);
    return found != m_found.end() ? found->second
                                  : m_found.emplace(path, m_lookup(path)).first->second;
}

}  // namespace studio
