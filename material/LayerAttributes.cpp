#include "material/LayerAttributes.h"

#include <algorithm>
#include <array>

namespace CorvexMaterial {

namespace {

struct LayerAttributeRow {
    TextureLayer layer;
    Attribute attribute;
};

constexpr std::array<LayerAttributeRow, kTextureLayerCount> kLayerRows{{
    {TextureLayer::Primary, Attribute::Texture},
    {TextureLayer::Overlay, Attribute::TextureOverlay},
    {TextureLayer::Alpha, Attribute::TextureAlpha},
    {TextureLayer::Bump, Attribute::TextureBumpmap},
    {TextureLayer::Specular, Attribute::TextureSpecularMap},
    {TextureLayer::Environment, Attribute::TextureEnvironmentMap},
}};

constexpr bool LayerRowsFollowEnum()
{
    for (std::size_t i = 0; i < kLayerRows.size(); ++i) {
        if (kLayerRows[i].layer != static_cast<TextureLayer>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(LayerRowsFollowEnum());

}  // namespace

Attribute AttributeOf(TextureLayer layer)
{
    return kLayerRows[static_cast<std::size_t>(layer)].attribute;
}

std::optional<TextureLayer> LayerOf(Attribute attribute)
{
    const auto* const row = std::find_if(kLayerRows.begin(), kLayerRows.end(),
                                         [attribute](const LayerAttributeRow& candidate) {
                                             return candidate.attribute == attribute;
                                         });
    return row == kLayerRows.end() ? std::nullopt : std::optional(row->layer);
}

}  // namespace CorvexMaterial
