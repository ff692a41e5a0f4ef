#pragma once

#include <CorvexMaterial/Schema.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace CorvexMaterial {

/// In the order of the channel tabs and of the thumbnails.
enum class TextureLayer : std::uint8_t { Primary, Overlay, Alpha, Bump, Specular, Environment };

inline constexpr std::size_t kTextureLayerCount = 6;

/// Tabs count from 1; 1 is the material's own attributes, those after the layers have no texture.
struct TextureLayerRow {
    TextureLayer layer;
    int tab;
    int image;  ///< element of the thumbnail array
    std::string CorvexDB::TextureFiles::*file;
};

inline constexpr std::array<TextureLayerRow, kTextureLayerCount> kTextureLayers{{
    {TextureLayer::Primary, 2, 0, &CorvexDB::TextureFiles::primary},
    {TextureLayer::Overlay, 3, 1, &CorvexDB::TextureFiles::overlay},
    {TextureLayer::Alpha, 4, 2, &CorvexDB::TextureFiles::alpha},
    {TextureLayer::Bump, 5, 3, &CorvexDB::TextureFiles::bump},
    {TextureLayer::Specular, 6, 4, &CorvexDB::TextureFiles::specular},
    {TextureLayer::Environment, 7, 5, &CorvexDB::TextureFiles::environment},
}};

using TextureLayerOrder = std::array<TextureLayer, kTextureLayerCount>;

/// Of the methods that take all six files and of the gathering for a shape; the settings follow it
/// too.
inline constexpr TextureLayerOrder kLayerMethodOrder{
    TextureLayer::Primary, TextureLayer::Alpha,    TextureLayer::Overlay,
    TextureLayer::Bump,    TextureLayer::Specular, TextureLayer::Environment};

[[nodiscard]] constexpr Attribute FileOf(TextureLayer layer)
{
    return kTextureFiles[static_cast<std::size_t>(layer)];
}

[[nodiscard]] constexpr const TextureLayerRow& RowOf(TextureLayer layer)
{
    return kTextureLayers[static_cast<std::size_t>(layer)];
}

/// The layer that a chosen texture goes to: on a tab before the layers the primary one, on a tab
/// after them the environment map.
[[nodiscard]] TextureLayer LayerOfTab(int tab);

}  // namespace CorvexMaterial
