#pragma once

#include "TextureBuffers.h"
#include "TextureCache.h"
#include <CorvexMaterial/MaterialRecord.h>

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace studio {

struct FrameItem;

enum class Layer : std::size_t { Primary, Overlay, Alpha, Bump, Specular, Environment };
inline constexpr std::size_t kLayerCount = 6;

struct LayerRow {
    std::string CorvexDB::TextureFiles::*file;
    PixelUse use;
    const char* name;  ///< of its sampler and, after LAYER_, of its preprocessor symbol
};

/// By `Layer`.
inline constexpr std::array<LayerRow, kLayerCount> kLayerRows{{
    {&CorvexDB::TextureFiles::primary, PixelUse::Colour, "primary"},
    {&CorvexDB::TextureFiles::overlay, PixelUse::Colour, "overlay"},
    {&CorvexDB::TextureFiles::alpha, PixelUse::Data, "alphaMap"},
    {&CorvexDB::TextureFiles::bump, PixelUse::Data, "bumpMap"},
    {&CorvexDB::TextureFiles::specular, PixelUse::Data, "specularMap"},
    {&CorvexDB::TextureFiles::environment, PixelUse::Colour, "environment"},
}};

/// What the alpha channel of the primary texture does.
enum class PrimaryAlpha { Nothing, Opacity, InverseOpacity, Height, Highlight, Reflection };

/// Which layers a surface has; decides what its shader contains.
struct LayerSet {
    std::uint32_t present = 0;  ///< one bit a layer
    PrimaryAlpha primaryAlpha = PrimaryAlpha::Nothing;

    [[nodiscard]] bool Has(Layer layer) const
    {
        return ((present >> static_cast<std::size_t>(layer)) & 1U) != 0;
    }
    [[nodiscard]] bool Empty() const { return present == 0; }
    [[nodiscard]] bool ChangesOpacity() const;
    [[nodiscard]] bool ChangesHighlight() const;
    /// Without what only matters to light.
    [[nodiscard]] LayerSet OpacityOnly() const;

    auto operator<=>(const LayerSet&) const = default;
};

/// An image without transparent pixels has no alpha channel that could mean anything.
[[nodiscard]] PrimaryAlpha PrimaryAlphaUse(const CorvexDB::udtMaterial& material,
                                           const Texture& texture);
/// What was drawn instead of this layer's file; null for a layer that comes from its file.
[[nodiscard]] const TexturePointer& GeneratedTexture(const FrameItem& item, Layer layer);

/// The layers of one item on the graphics device; 0 for a layer that is not there.
struct SurfaceLayers {
    LayerSet set;
    std::array<GLuint, kLayerCount> textures{};
};

/// The pixels of a file, or null as long as they are not known.
using TextureLookup = std::function<TexturePointer(const std::string& path)>;

/// Finds the textures of a frame's items; asks for each file once.
class FrameTextures {
public:
    FrameTextures(const TextureLookup& lookup, TextureBufferCache& buffers)
        : m_lookup(lookup), m_buffers(buffers)
    {
    }

    [[nodiscard]] SurfaceLayers LayersOf(const FrameItem& item,
                                         const CorvexDB::udtMaterial& material);

private:
    const TexturePointer& TextureOf(const std::string& path);

    const TextureLookup& m_lookup;
    TextureBufferCache& m_buffers;
    std::unordered_map<std::string, TexturePointer> m_found;
};

}  // namespace studio
