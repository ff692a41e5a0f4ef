#include "Thumbnailer.h"

#include "MaterialModel.h"
#include "ParametricMesh.h"
#include "PluginMaterials.h"
#include "RenderService.h"
#include "TextureCache.h"
#include "TextureFile.h"
#include "Thumbnail.h"
#include <CorvexMaterial/Status.h>

#include <QBuffer>

#include <limits>

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

// Squares that show what a transparent material lets through.
TexturePointer Checks()
{
    constexpr int kSquares = 12;
    auto texture = std::make_shared<Texture>();
    texture->id = std::numeric_limits<std::uint64_t>::max();
    texture->image = QImage(kSquares, kSquares, QImage::Format_RGBA8888);
    for (int i = 0; i < kSquares * kSquares; ++i) {
        const int x = i % kSquares;
        const int y = i / kSquares;
        const bool isLight = (x + y) % 2 == 0;
        texture->image.setPixelColor(x, y, isLight ? QColor(108, 115, 125) : QColor(62, 67, 74));
    }
    texture->image = texture->image.scaled(kSquares * 32, kSquares * 32);
    return texture;
}

/// Upright behind the ball, wherever the camera is.
std::shared_ptr<const Mesh> WallBehind(const Camera& camera)
{
    const QVector3D away = (camera.target - camera.Eye()).normalized();
    return ParametricMesh(
        [camera, away](float u, float v) {
            return camera.target + 1.6F * away + 6.0F * (u - 0.5F) * camera.Right() +
                   6.0F * (v - 0.5F) * camera.Up();
        },
        {1, 1});
}

FrameItem Wall(const Camera& camera, const TexturePointer& checks)
{
    auto material = std::make_shared<CorvexDB::udtMaterial>();
    material->Emissive = 100;
    material->Ambient = 0;
    FrameItem wall;
    wall.mesh = WallBehind(camera);
    wall.material = std::move(material);
    wall.generatedColor = checks;
    return wall;
}

}  // namespace

Thumbnailer::Thumbnailer(RenderService& rendering, PluginTextures* plugins)
    : m_rendering(rendering), m_plugins(plugins), m_sphere(SphereMesh(1.0F)), m_checks(Checks())
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
    if (IsTransparent(material)) {
        frame.items.push_back(Wall(frame.camera, m_checks));
    }
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
    return {ThumbnailOf(texture, kThumbnailSide), read.size,
            read.error.empty() ? std::string() : file + ": " + read.error};
}

std::string Thumbnailer::Png(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return image.isNull() || !image.save(&buffer, "PNG") ? std::string() : bytes.toStdString();
}

}  // namespace studio
