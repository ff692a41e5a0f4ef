#include "TextureImage.h"

#include "QtRegularFile.h"

#include <QFile>
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
    QFile opened(file);
    if (!OpenRegular(opened, kMostPictureFileBytes).empty()) {
        return {};
    }
    QImageReader reader(&opened);
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
