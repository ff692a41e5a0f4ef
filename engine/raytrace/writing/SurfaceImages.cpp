#include "SurfaceImages.h"

#include <algorithm>

namespace studio {
namespace {

// The numbers of file textures count up from 1, those of plug-ins have the highest bit.
constexpr std::uint64_t kHeightIds = std::uint64_t{1} << 62;

int HeightOf(const uchar* rgba)
{
    return static_cast<int>(0.2126 * rgba[0] + 0.7152 * rgba[1] + 0.0722 * rgba[2] + 0.5);
}

void AddBump(QImage& heights, const QImage& bump, int share)
{
    const QImage fitted =
        bump.scaled(heights.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGBA8888);
    for (int y = 0; y < heights.height(); ++y) {
        const uchar* from = fitted.constScanLine(y);
        uchar* to = heights.scanLine(y);
        for (int x = 0; x < heights.width(); ++x) {
            to[x] = static_cast<uchar>(to[x] + HeightOf(from + 4 * x) / share);
        }
    }
}

void AddAlpha(QImage& heights, const QImage& primary, int share)
{
    const QImage fitted =
        primary.scaled(heights.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGBA8888);
    for (int y = 0; y < heights.height(); ++y) {
        const uchar* from = fitted.constScanLine(y);
        uchar* to = heights.scanLine(y);
        for (int x = 0; x < heights.width(); ++x) {
            to[x] = static_cast<uchar>(to[x] + from[4 * x + 3] / share);
        }
    }
}

}  // namespace

const CorvexDB::udtMaterial& MaterialOf(const FrameItem& item)
{
    static const CorvexDB::udtMaterial kDefault;
    return item.material ? *item.material : kDefault;
}

SurfaceImages SurfacePixelsOf(const FrameItem& item, const CorvexDB::udtMaterial& material,
                              const RaytraceImages& images)
{
    SurfaceImages found;
    for (std::size_t i = 0; i < kLayerCount; ++i) {
        const TexturePointer& drawn = GeneratedTexture(item, static_cast<Layer>(i));
        found.textures[i] = drawn ? drawn : images.TextureOf(material.Textures.*kLayerRows[i].file);
        found.set.present |= found.textures[i] ? 1U << i : 0U;
    }
    if (found.set.Has(Layer::Primary)) {
        found.set.primaryAlpha = PrimaryAlphaUse(material, *found.Pixels(Layer::Primary));
    }
    return found;
}

SurfaceImages SurfaceImagesOf(const FrameItem& item, const CorvexDB::udtMaterial& material,
                              RaytraceImages& images)
{
    SurfaceImages found = SurfacePixelsOf(item, material, images);
    for (std::size_t i = 0; i < kLayerCount; ++i) {
        if (GeneratedTexture(item, static_cast<Layer>(i))) {
            found.images[i] = images.ImageOf(*found.textures[i]);
        } else if (found.textures[i]) {
            found.images[i] = images.ImageOf(material.Textures.*kLayerRows[i].file);
        }
    }
    return found;
}

SurfaceHeights HeightsOf(const SurfaceImages& images)
{
    const TexturePointer& bump = images.Pixels(Layer::Bump);
    const bool alpha = images.set.primaryAlpha == PrimaryAlpha::Height;
    if (bump == nullptr && !alpha) {
        return {};
    }
    const TexturePointer& primary = images.Pixels(Layer::Primary);
    auto heights = std::make_shared<Texture>();
    heights->id = kHeightIds | (bump ? bump->id << 24U : 0) | (alpha ? primary->id : 0);
    const QSize size = bump ? bump->image.size() : primary->image.size();
    const int side = std::max(size.width(), size.height());
    heights->image = QImage(side, side, QImage::Format_Grayscale8);
    heights->image.fill(0);
    const int share = bump && alpha ? 2 : 1;
    if (bump) {
        AddBump(heights->image, bump->image, share);
    }
    if (alpha) {
        AddAlpha(heights->image, primary->image, share);
    }
    return {std::move(heights), static_cast<float>(share)};
}

}  // namespace studio
