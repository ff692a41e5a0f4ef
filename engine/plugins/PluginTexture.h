#pragma once

#include <QImage>

#include <cstdint>

namespace studio {

/// What a plug-in drew. Copies share the pixels, so any thread may keep one.
struct PluginTexture {
    QImage color;           ///< Format_RGBA8888; null when there is no texture
    QImage bump;            ///< Format_Grayscale8 heights of the same size; null without relief
    std::uint64_t key = 0;  ///< another one for each texture of one PluginTextures; 0 = none
};

}  // namespace studio
