#include "material/LayerAttributes.h"

#include <algorithm>
#include <array>

namespace CorvexMaterial {

namespace {

struct LayerAttributeRow {
    TextureLayer layer;
    Attribute attribute;
};

constexpr std::array<LayerAttributeRow, kTextureLayerCount> kRows{{
    {TextureLayer::Primary, Attribute::Texture},
    {TextureLayer::Overlay, Attribute::TextureOverlay},
    {TextureLayer::Alpha, Attribute::TextureAlpha},
    {TextureLayer::Bump, Attribute::TextureBumpmap},
    {TextureLayer::Specular, Attribute::TextureSpecularMap},
    {TextureLayer::Environment, Attribute::TextureEnvironmentMap},
}};

constexpr bool RowsFollowEnum()
{
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].layer != static_cast<TextureLayer>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(RowsFollowEnum());

}  // namespace

Attribute AttributeOf(TextureLayer layer)
{
    return kRows[static_cast<std::size_t>(layer)].attribute;
}

std::optional<TextureLayer> LayerOf(Attribute attribute)
{
    const auto* const row =
        std::find_if(kRows.begin(), kRows.end(), [attribute](const LayerAttributeRow& candidate) {
            return candidate.attribute == attribute;
        });
    return row == kRows.end() ? std::nullopt : std::optional(row->layer);
}

}  // namespace CorvexMaterial
