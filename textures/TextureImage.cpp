#include "textures/TextureImage.h"

#include <QFileInfo>
#include <QImageReader>

namespace CorvexMaterial {

namespace {

QSize FitInto(const QSize& size, int side)
{
    if (std::max(size.width(), size.height()) <= side) {
        return size;
    }
    // A very long image still has a row or column.
    return size.scaled(side, side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

}  // namespace

TextureImage ReadTextureImage(const QString& file, int side)
{
    // Opening a pipe or a device could wait for ever.
    if (!QFileInfo(file).isFile()) {
        return {};
    }
    QImageReader reader(file);
    TextureImage result;
    result.size = reader.size();
    if (!result.size.isEmpty()) {
        reader.setScaledSize(FitInto(result.size, side));
    }
    result.image = reader.read();
    if (result.size.isEmpty()) {
        // The format does not tell its size before it is decoded.
        result.size = result.image.size();
    }
    const QSize wanted = FitInto(result.image.size(), side);
    if (result.image.size() != wanted) {
        result.image = result.image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return result;
}

}  // namespace CorvexMaterial
