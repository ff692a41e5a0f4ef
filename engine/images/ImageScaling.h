#pragma once

#include "TextureFile.h"
#include "TexturePixels.h"

#include <QImage>
#include <QSize>

namespace studio {

/// The largest size with the same proportions that keeps to the bounds; at least one pixel each
/// way.
[[nodiscard]] QSize FittedSize(QSize size, const ImageBounds& bounds);

/// An image of any format as pixels of a texture that keep to the bounds; null without memory for
/// them. Colours under transparent pixels survive, for a material may ignore the alpha channel.
[[nodiscard]] TexturePixels FittedPixels(QImage image, const ImageBounds& bounds);

}  // namespace studio
