#include "ImageScaling.h"

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

QImage ScaledDown(const TexturePixels& pixels, QSize size)
{
    // The toolkit scales premultiplied pixels, which have no colour where they are transparent.
    QImage colours = Scaled(pixels.image.convertToFormat(QImage::Format_RGBX8888), size)
                         .convertToFormat(QImage::Format_RGBX8888);
    colours.reinterpretAsFormat(QImage::Format_RGBA8888);
    if (pixels.hasAlpha) {
        const QImage alpha = Scaled(pixels.image.convertToFormat(QImage::Format_Alpha8), size)
                                 .convertToFormat(QImage::Format_Alpha8);
        if (colours.isNull() || alpha.isNull()) {
            return {};
        }
        PutAlpha(colours, alpha);
    }
    return colours;
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

TexturePixels FittedPixels(QImage image, const ImageBounds& bounds)
{
    const QSize size = FittedSize(image.size(), bounds);
    if (image.isNull() || size == image.size()) {
        return ToTexturePixels(std::move(image));
    }
    // In bands: an image may be so large that four bytes a pixel of it are too many.
    constexpr std::int64_t kBandPixels = std::int64_t{1} << 22;
    const std::int64_t pixelsInARow = std::int64_t{image.width()} * image.height() / size.height();
    const int bandRows = static_cast<int>(std::max<std::int64_t>(1, kBandPixels / pixelsInARow));
    TexturePixels fitted{QImage(size, QImage::Format_RGBA8888)};
    for (int y = 0; y < size.height() && !fitted.image.isNull(); y += bandRows) {
        const int rows = std::min(bandRows, size.height() - y);
        const auto rowOf = [&](int row) {
            return static_cast<int>(std::int64_t{row} * image.height() / size.height());
        };
        const TexturePixels band =
            ToTexturePixels(image.copy(0, rowOf(y), image.width(), rowOf(y + rows) - rowOf(y)));
        const QImage scaled = ScaledDown(band, {size.width(), rows});
        if (scaled.isNull()) {
            return {};
        }
        std::copy_n(scaled.constBits(), scaled.sizeInBytes(), fitted.image.scanLine(y));
        fitted.hasAlpha = fitted.hasAlpha || band.hasAlpha;
    }
    return fitted;
}

}  // namespace studio
