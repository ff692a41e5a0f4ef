#pragma once

#include "studio/images/TextureFile.h"

#include <QImage>
#include <QSize>

namespace studio {

/// The largest size with the same proportions that keeps to the bounds; at least one pixel each
/// way.
[[nodiscard]] QSize FittedSize(QSize size, const ImageBounds& bounds);

/// The image itself when it keeps to the bounds. Format_RGBA8888 in and out; colours under
/// transparent pixels survive, for a material may ignore the alpha channel.
[[nodiscard]] QImage ScaledDown(const QImage& image, const ImageBounds& bounds);

}  // namespace studio
