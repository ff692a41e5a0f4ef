#pragma once

#include <QImage>

namespace studio {

struct Texture;

/// The texture's image, smoothly scaled down to fit a square of this many pixels; small ones are
/// not enlarged. Null when the texture's file could not be read.
[[nodiscard]] QImage ThumbnailOf(const Texture& texture, int side);

}  // namespace studio
