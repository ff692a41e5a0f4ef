#include "Thumbnail.h"

#include "TextureCache.h"

namespace studio {

QImage ThumbnailOf(const Texture& texture, int side)
{
    if (!texture.error.empty()) {
        return {};
    }
    const QSize size = texture.image.size();
    if (size.width() <= side && size.height() <= side) {
        return texture.image;
    }
    const QSize fitted = size.scaled(side, side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return texture.image.scaled(fitted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace studio
