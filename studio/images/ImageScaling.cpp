#include "studio/images/ImageScaling.h"

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

/// Replaces the alpha of `colours` by the values of an image of the same size in Format_Alpha8.
void PutAlpha(QImage& colours, const QImage& alpha)
{
    for (int y = 0; y < colours.height(); ++y) {
        uchar* target = colours.scanLine(y);
        const uchar* source = alpha.constScanLine(y);
        for (int x = 0; x < colours.width(); ++x) {
            target[x * 4 + 3] = source[x];
        }
    }
}

QImage Scaled(const QImage& image, QSize size)
{
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

QSize FittedSize(QSize size, const ImageBounds& bounds)
{
    const double width = size.width();
    const double height = size.height();
    const double bySide = bounds.side / std::max(width, height);
    const double byBytes = std::sqrt(static_cast<double>(bounds.bytes) / (width * height * 4));
    const double factor = std::min(bySide, byBytes);
    if (factor >= 1) {
        return size;
    }
    return {std::max(1, static_cast<int>(width * factor)),
            std::max(1, static_cast<int>(height * factor))};
}

QImage ScaledDown(const QImage& image, const ImageBounds& bounds)
{
    const QSize size = FittedSize(image.size(), bounds);
    if (image.isNull() || size == image.size()) {
        return image;
    }
    // The toolkit scales premultiplied pixels, which have no colour where they are transparent.
    QImage colours = Scaled(image.convertToFormat(QImage::Format_RGBX8888), size)
                         .convertToFormat(QImage::Format_RGBX8888);
    const QImage alpha = Scaled(image.convertToFormat(QImage::Format_Alpha8), size)
                             .convertToFormat(QImage::Format_Alpha8);
    if (colours.isNull() || alpha.isNull()) {
        return {};
    }
    colours.reinterpretAsFormat(QImage::Format_RGBA8888);
    PutAlpha(colours, alpha);
    return colours;
}

}  // namespace studio
