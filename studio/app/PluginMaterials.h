#pragma once

#include "studio/plugins/PluginTextures.h"
#include "studio/render/Frame.h"

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
    };

    const Layers& LayersOf(const PluginTexture& texture);
    void Put(FrameItem& item, const PluginTexture& texture);

    PluginTextures& m_textures;
    std::map<std::uint64_t, Layers> m_layers;  ///< by the key of the plug-in's texture
};

}  // namespace studio
