#pragma once

#include <QImage>
#include <QSize>

namespace CorvexMaterial {

/// An image file as the panel shows it.
struct TextureImage {
    QImage image;  ///< null when the file cannot be read
    QSize size;    ///< of the file, in pixels
};

/// Reads the file no larger than `side` on its longer side and never enlarges it. Whatever the file
/// holds, this ends and fails quietly: no regular file, damaged, or beyond Qt's allocation limit.
[[nodiscard]] TextureImage ReadTextureImage(const QString& file, int side);

}  // namespace CorvexMaterial
