#include "RibTextures.h"

#include "MaterialModel.h"

#include <QRgba64>

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

// The numbers of file textures count up from 1, those of plug-ins have the highest bit.
constexpr std::uint64_t kLightIds = std::uint64_t{1} << 61;

constexpr int kBorderShare = 8;  ///< of a tile's side there is one more on each side
constexpr float kTileShare = 8.0F / 10.0F;
constexpr int kLargestSide = 4096;

struct Texel {
    std::array<float, 3> light{1.0F, 1.0F, 1.0F};
    float alpha = 1.0F;
};

Texel Mixed(const Texel& a, const Texel& b, float share)
{
    Texel mixed;
    for (std::size_t i = 0; i < 3; ++i) {
        mixed.light[i] = a.light[i] + (b.light[i] - a.light[i]) * share;
    }
    mixed.alpha = a.alpha + (b.alpha - a.alpha) * share;
    return mixed;
}

/// Reads an image between its pixels; it repeats in both directions.
class RepeatedImage {
public:
    explicit RepeatedImage(const TexturePointer& texture)
        : m_image(texture ? texture->image : QImage())
    {
    }

    [[nodiscard]] bool Empty() const { return m_image.isNull(); }
    [[nodiscard]] QSize Size() const { return m_image.size(); }

    [[nodiscard]] Texel At(const QVector2D& place) const
    {
        const float x = Position(place.x(), m_image.width());
        const float y = Position(place.y(), m_image.height());
        const int left = static_cast<int>(x);
        const int top = static_cast<int>(y);
        const float across = x - static_cast<float>(left);
        const float down = y - static_cast<float>(top);
        return Mixed(Mixed(Pixel(left, top), Pixel(left + 1, top), across),
                     Mixed(Pixel(left, top + 1), Pixel(left + 1, top + 1), across), down);
    }

private:
    /// In pixels from the middle of the first, at least 0.
    static float Position(float place, int side)
    {
        const auto pixels = static_cast<float>(side);
        const float position = (place - std::floor(place)) * pixels - 0.5F;
        return position < 0.0F ? position + pixels : position;
    }

    [[nodiscard]] Texel Pixel(int x, int y) const
    {
        const uchar* rgba = m_image.constScanLine(y % m_image.height()) + 4 * (x % m_image.width());
        return {{CorvexMaterial::LightOfByte(rgba[0]), CorvexMaterial::LightOfByte(rgba[1]),
                 CorvexMaterial::LightOfByte(rgba[2])},
                static_cast<float>(rgba[3]) / 255.0F};
    }

    QImage m_image;
};

/// Of two bytes a channel: dark light has few steps in one.
QImage Picture(QSize size, const std::function<Texel(int x, int y)>& texelAt)
{
    QImage picture(size, QImage::Format_RGBX64);
    const auto part = [](float light) {
        return static_cast<quint16>(std::clamp(light * 65535.0F + 0.5F, 0.0F, 65535.0F));
    };
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgba64*>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const std::array<float, 3> light = texelAt(x, y).light;
            line[x] = qRgba64(part(light[0]), part(light[1]), part(light[2]), 0xFFFF);
        }
    }
    return picture;
}

/// A whole number of border shares, so that borders are as wide in every image.
int TileSide(float cropped, int primary, int overlay)
{
    const float wanted = std::abs(cropped) * static_cast<float>(std::max(primary, overlay));
    const float shares = std::ceil(std::min(wanted, float{kLargestSide}) / kBorderShare);
    return kBorderShare * std::max(static_cast<int>(shares), 1);
}

QImage Tile(const RepeatedImage& primary, const RepeatedImage& overlay, float overlayOpacity,
            const QVector4D& crop)
{
    const QSize tile(TileSide(crop.z(), primary.Size().width(), overlay.Size().width()),
                     TileSide(crop.w(), primary.Size().height(), overlay.Size().height()));
    const QSize border = tile / kBorderShare;
    const auto fraction = [](int pixel, int first, int count) {
        const int within = (pixel - first + count) % count;
        return (static_cast<float>(within) + 0.5F) / static_cast<float>(count);
    };
    return Picture(tile + 2 * border, [&](int x, int y) {
        const QVector2D place(crop.x() + crop.z() * fraction(x, border.width(), tile.width()),
                              crop.y() + crop.w() * fraction(y, border.height(), tile.height()));
        const Texel below = primary.Empty() ? Texel() : primary.At(place);
        if (overlay.Empty()) {
            return below;
        }
        const Texel above = overlay.At(place);
        return Mixed(below, above, above.alpha * overlayOpacity);
    });
}

std::uint64_t IdOf(const TexturePointer& texture)
{
    return texture ? texture->id : 0;
}

}  // namespace

std::string RibTextures::TileOf(const SurfaceImages& layers, float overlayOpacity,
                                const QVector4D& crop)
{
    const TexturePointer& primary = layers.Pixels(Layer::Primary);
    const TexturePointer& overlay = layers.Pixels(Layer::Overlay);
    return Save(
        {IdOf(primary), IdOf(overlay), {overlayOpacity, crop.x(), crop.y(), crop.z(), crop.w()}},
        [&] { return Tile(RepeatedImage(primary), RepeatedImage(overlay), overlayOpacity, crop); });
}

std::string RibTextures::EnvironmentOf(const SurfaceImages& layers)
{
    const TexturePointer& texture = layers.Pixels(Layer::Environment);
    return Save({texture->id, 0, {}}, [&] {
        const RepeatedImage image(texture);
        const QSize size = image.Size();
        return Picture(size, [&](int x, int y) {
            return image.At({(static_cast<float>(x) + 0.5F) / static_cast<float>(size.width()),
                             (static_cast<float>(y) + 0.5F) / static_cast<float>(size.height())});
        });
    });
}

QVector2D RibTextures::InImage(const QVector2D& place)
{
    return kTileShare * place + (1.0F - kTileShare) / 2.0F * QVector2D(1.0F, 1.0F);
}

std::string RibTextures::Save(const Key& key, const std::function<QImage()>& make)
{
    const auto known = m_paths.find(key);
    if (known != m_paths.end()) {
        return known->second;
    }
    Texture light;
    light.id = kLightIds | m_paths.size();
    light.image = make();
    return m_paths.emplace(key, m_images.ImageOf(light).path).first->second;
}

}  // namespace studio
