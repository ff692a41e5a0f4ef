#pragma once

#include "Frame.h"
#include "PluginTextures.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace studio {

/// Hands what plug-ins draw to the renderer, as the textures of the items whose material names a
/// plug-in. User-interface thread only.
class PluginMaterials {
public:
    /// The textures outlive this object.
    explicit PluginMaterials(PluginTextures& textures) : m_textures(textures) {}

    /// Gives each such item the best texture that there is by now; `PluginTextures::Ready` tells of
    /// a better one.
    void Complete(Frame& frame);

    /// The same, but waits for the textures at full size: for pictures that are drawn once. What a
    /// plug-in refuses to draw is left out.
    void CompleteNow(Frame& frame);

private:
    struct Layers {
        TexturePointer color;
        TexturePointer bump;
        std::uint64_t lastUse = 0;  ///< a round of the views

        [[nodiscard]] std::int64_t Bytes() const;
    };

    Layers& LayersOf(const PluginTexture& texture);
    /// The round is 0 for pictures that are drawn once.
    void Put(FrameItem& item, const PluginTexture& texture, std::uint64_t round);
    void DropOld();

    PluginTextures& m_textures;
    std::map<std::uint64_t, Layers> m_layers;  ///< by the key of the plug-in's texture
    std::uint64_t m_round = PluginTextures::kKeptRounds;
};

}  // namespace studio
