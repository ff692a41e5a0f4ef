#include "ImageFiles.h"

#include "FileWriting.h"

#include <QBuffer>
#include <QImage>

#include <stdexcept>
#include <vector>

namespace media {
namespace {

constexpr int kJpegQuality = 90;

int Byte(float value)
{
    return static_cast<int>(std::clamp(value, 0.0F, 1.0F) * 255.0F + 0.5F);
}

QRgb Pixel(Paint paint, float alpha)
{
    return qRgba(Byte(paint.red), Byte(paint.green), Byte(paint.blue), Byte(alpha));
}

void Save(const QImage& image, const QString& file)
{
    const bool lossy = file.endsWith(QStringLiteral(".jpg"));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!image.save(&buffer, lossy ? "jpg" : "png", lossy ? kJpegQuality : -1)) {
        throw std::runtime_error("cannot write " + file.toStdString());
    }
    CorvexMaterial::WriteFile(file.toStdString(), bytes);
}

std::vector<Texel> Painted(const TextureRow& row)
{
    const auto length = static_cast<std::size_t>(row.size);
    std::vector<Texel> texels(length * length);
    const float pixel = 1.0F / static_cast<float>(row.size);
    for (std::size_t i = 0; i < texels.size(); ++i) {
        texels[i] = row.paint({(static_cast<float>(i % length) + 0.5F) * pixel,
                               (static_cast<float>(i / length) + 0.5F) * pixel});
    }
    return texels;
}

template <typename PixelOf>
QImage Image(const std::vector<Texel>& texels, int size, QImage::Format format, PixelOf pixelOf)
{
    QImage image(size, size, QImage::Format_ARGB32);
    for (int y = 0; y < size; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const Texel* texel = texels.data() + static_cast<std::ptrdiff_t>(y) * size;
        std::transform(texel, texel + size, line, pixelOf);
    }
    return std::move(image).convertToFormat(format);
}

}  // namespace

void WriteTexture(const TextureRow& row, const QString& folder)
{
    const std::vector<Texel> texels = Painted(row);
    const QString base =
        folder + u'/' + QString::fromUtf8(row.name.data(), static_cast<qsizetype>(row.name.size()));
    const auto format = row.hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32;
    Save(Image(texels, row.size, format,
               [](const Texel& texel) { return Pixel(texel.colour, texel.alpha); }),
         base + (row.hasAlpha ? QStringLiteral(".png") : QStringLiteral(".jpg")));
    const auto grey = [&](float Texel::*value, const QString& suffix) {
        Save(Image(texels, row.size, QImage::Format_Grayscale8,
                   [value](const Texel& texel) {
                       return Pixel({texel.*value, texel.*value, texel.*value}, 1.0F);
                   }),
             base + suffix);
    };
    if (Has(row.companions, Companions::Bump)) {
        grey(&Texel::height, QStringLiteral("-bump.png"));
    }
    if (Has(row.companions, Companions::Specular)) {
        grey(&Texel::shine, QStringLiteral("-specular.png"));
    }
}

void WriteEnvironment(const EnvironmentRow& row, const QString& folder)
{
    constexpr int kHeight = 512;
    QImage image(2 * kHeight, kHeight, QImage::Format_RGB32);
    for (int y = 0; y < kHeight; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < 2 * kHeight; ++x) {
            line[x] = Pixel(row.paint({(static_cast<float>(x) + 0.5F) / (2.0F * kHeight),
                                       (static_cast<float>(y) + 0.5F) / kHeight}),
                            1.0F);
        }
    }
    Save(image, folder + u'/' +
                    QString::fromUtf8(row.name.data(), static_cast<qsizetype>(row.name.size())) +
                    QStringLiteral(".jpg"));
}

}  // namespace media
