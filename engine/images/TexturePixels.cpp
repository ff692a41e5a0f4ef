#include "TexturePixels.h"

#include <QtEndian>

#include <span>

namespace studio {

namespace {

std::span<quint32> RowOf(QImage& image, int y)
{
    return {reinterpret_cast<quint32*>(image.scanLine(y)), static_cast<std::size_t>(image.width())};
}

// The two loops below have no branches, so that the compiler can take many pixels at once: a large
// JPEG is decoded so fast that anything slower would double its time.

/// From the toolkit's 0xAARRGGBB to bytes in the order red, green, blue, alpha.
void SwapRedAndBlue(QImage& image, quint32 alwaysSet)
{
    for (int y = 0; y < image.height(); ++y) {
        for (quint32& pixel : RowOf(image, y)) {
            const quint32 colour = pixel | alwaysSet;
            pixel = (colour & 0xFF00FF00U) | (colour >> 16U & 0xFFU) | (colour & 0xFFU) << 16U;
        }
    }
}

bool HasTransparentPixel(QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        quint32 common = 0xFFFFFFFFU;
        for (const quint32 pixel : RowOf(image, y)) {
            common &= pixel;
        }
        if (qFromLittleEndian(common) >> 24U != 0xFFU) {
            return true;
        }
    }
    return false;
}

}  // namespace

TexturePixels ToTexturePixels(QImage image)
{
    constexpr quint32 kOpaque = 0xFF000000U;
    const bool mayBeTransparent = image.hasAlphaChannel();
    const bool inToolkitOrder =
        image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32;
    if (inToolkitOrder && Q_BYTE_ORDER == Q_LITTLE_ENDIAN) {
        SwapRedAndBlue(image, mayBeTransparent ? 0 : kOpaque);
        image.reinterpretAsFormat(QImage::Format_RGBA8888);
    } else {
        image.convertTo(QImage::Format_RGBA8888);
    }
    const bool hasAlpha = mayBeTransparent && HasTransparentPixel(image);
    return {std::move(image), hasAlpha};
}

}  // namespace studio
