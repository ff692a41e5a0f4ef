#pragma once

#include <QImage>

namespace studio {

struct TexturePixels {
    QImage image;           ///< Format_RGBA8888, straight alpha
    bool hasAlpha = false;  ///< some pixel is not opaque
};

/// Takes an image of any format; the usual ones are changed in place when nobody else holds them.
[[nodiscard]] TexturePixels ToTexturePixels(QImage image);

}  // namespace studio
