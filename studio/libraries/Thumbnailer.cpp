#include "studio/libraries/Thumbnailer.h"

#include "host/Status.h"
#include "studio/app/PluginMaterials.h"
#include "studio/images/TextureCache.h"
#include "studio/images/TextureFile.h"
#include "studio/images/Thumbnail.h"
#include "studio/render/RenderService.h"
#include "studio/scene/ParametricMesh.h"

#include <QBuffer>

namespace studio {
namespace {

constexpr CorvexMaterial::Colour kBackdrop = 0x5A504A;

Camera ThumbnailCamera()
{
    Camera camera;
    camera.yawDegrees = 25.0F;
    camera.pitchDegrees = 18.0F;
    return camera;
}

}  // namespace

Thumbnailer::Thumbnailer(RenderService& rendering, PluginTextures* plugins)
    : m_rendering(rendering), m_plugins(plugins), m_sphere(SphereMesh(1.0F))
{
}

QImage Thumbnailer::OfMaterial(const CorvexDB::udtMaterial& material) const
{
    FrameItem item;
    item.mesh = m_sphere;
    item.material = std::make_shared<CorvexDB::udtMaterial>(material);
    // As the panel's preview: the wrap makes the coordinates.
    item.coordinates = CorvexSG::CoordinateMode::FromWrap;
    Frame frame;
    frame.items.push_back(std::move(item));
    frame.camera = Framed(ThumbnailCamera(), frame.items);
    frame.background = kBackdrop;
    frame.width = kThumbnailSide;
    frame.height = kThumbnailSide;
    frame.samples = 4;
    if (m_plugins != nullptr) {
        PluginMaterials(*m_plugins).CompleteNow(frame);
    }
    return m_rendering.DrawNow(std::move(frame));
}

std::string Thumbnailer::PngIfPossible(const CorvexDB::udtMaterial& material) const
{
    try {
        return Png(OfMaterial(material));
    } catch (const CorvexMaterial::Error&) {
        return {};
    }
}

Thumbnailer::TexturePicture Thumbnailer::OfTexture(const std::string& file)
{
    constexpr ImageBounds kBounds{4096, std::int64_t{256} << 20};
    const FileImage read = ReadTextureFile(file, kBounds);
    Texture texture;
    texture.image = read.image;
    texture.error = read.error;
    return {ThumbnailOf(texture, kThumbnailSide), read.image.size(),
            read.error.empty() ? std::string() : file + ": " + read.error};
}

std::string Thumbnailer::Png(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return image.isNull() || !image.save(&buffer, "PNG") ? std::string() : bytes.toStdString();
}

}  // namespace studio
