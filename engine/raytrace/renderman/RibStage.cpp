#include "RibStage.h"

#include "Backdrop.h"
#include "MaterialModel.h"
#include "Quoting.h"

#include <algorithm>

namespace studio {
namespace {

/// The gradient is even between encoded colours, which a renderer would mix as light.
constexpr int kBackdropStrips = 12;
constexpr BackdropColours kFlatBackdrop{{1.0F, 1.0F, 1.0F}, {1.0F, 1.0F, 1.0F}};

QSizeF SizeOf(const Frame& frame)
{
    return {static_cast<double>(std::max(frame.width, 1)),
            static_cast<double>(std::max(frame.height, 1))};
}

void WriteDistantLight(TextStream& out, int number, const QVector3D& towards, float intensity)
{
    out << "LightSource \"distantlight\" " << number << " \"float intensity\" [" << intensity
        << "] \"point from\" [";
    WriteRibVector(out, towards);
    out << "] \"point to\" [0 0 0]\n";
}

/// Where the plane behind everything is met through a point of the picture, counted from 0 to 1
/// from its top left.
class BackdropPlane {
public:
    explicit BackdropPlane(const RaytraceScene& scene) : m_scene(scene)
    {
        const Camera& camera = scene.frame.camera;
        m_forward = -camera.Back();
        for (const QVector3D& corner : WorldBounds(scene.frame.items).Corners()) {
            m_distance = std::max(m_distance,
                                  2.0F * QVector3D::dotProduct(corner - camera.Eye(), m_forward));
        }
    }

    [[nodiscard]] QVector3D At(float across, float down) const
    {
        if (m_scene.flat) {
            return {2.0F * across - 1.0F, 1.0F - 2.0F * down, -1.0F};
        }
        const QSizeF size = SizeOf(m_scene.frame);
        const Ray ray = m_scene.frame.camera.RayThrough(
            {size.width() * static_cast<double>(across), size.height() * static_cast<double>(down)},
            size);
        return ray.origin +
               ray.direction * (m_distance / QVector3D::dotProduct(ray.direction, m_forward));
    }

private:
    const RaytraceScene& m_scene;
    QVector3D m_forward;
    float m_distance = 2.0F;
};

void WriteColourAt(TextStream& out, const BackdropColours& colours, float down)
{
    for (std::size_t i = 0; i < 3; ++i) {
        const float encoded = colours.top[i] + down * (colours.bottom[i] - colours.top[i]);
        out << LinearFromEncoded(std::clamp(encoded, 0.0F, 1.0F)) << ' ';
    }
}

/// Wider than the picture, for a renderer that is told another size.
void WriteStrip(TextStream& out, const BackdropPlane& plane, const BackdropColours& colours,
                float upper, float lower)
{
    constexpr float kLeft = -0.5F;
    constexpr float kRight = 1.5F;
    out << "Polygon \"P\" [";
    for (const QVector3D& point : {plane.At(kLeft, upper), plane.At(kLeft, lower),
                                   plane.At(kRight, lower), plane.At(kRight, upper)}) {
        WriteRibVector(out, point);
        out << ' ';
    }
    out << "] \"varying color Cs\" [";
    for (const float down : {upper, lower, lower, upper}) {
        WriteColourAt(out, colours, down);
    }
    out << "]\n";
}

}  // namespace

void WriteRibVector(TextStream& out, const QVector3D& vector)
{
    out << vector.x() << ' ' << vector.y() << ' ' << vector.z();
}

void WriteRibTransform(TextStream& out, const QMatrix4x4& matrix)
{
    out << "ConcatTransform [";
    for (int i = 0; i < 16; ++i) {
        out << (i == 0 ? "" : " ") << matrix.constData()[i];
    }
    out << "]\n";
}

void WriteRibHead(TextStream& out, const RaytraceScene& scene, const std::string& picture)
{
    const Frame& frame = scene.frame;
    out << "##RenderMan RIB-Structure 1.1\n##Creator Corvex Studio\nversion 3.03\n"
        << "Display " << RibString(picture) << " \"file\" \"rgb\"\n"
        << "Format " << std::max(frame.width, 1) << ' ' << std::max(frame.height, 1) << " 1\n";
    const bool isParallel = frame.camera.lens == Lens::Parallel;
    if (scene.flat || isParallel) {
        out << "Projection \"orthographic\"\n";
    } else {
        out << "Projection \"perspective\" \"float fov\" [" << frame.camera.fovDegrees << "]\n";
    }
    // The picture is light that has to be encoded; a power comes nearest.
    out << "PixelSamples 3 3\nExposure 1 2.2\n";
    // From our right-handed world to z into the screen.
    if (scene.flat) {
        // -1 to 1 is what the smaller side sees; the sample fills the larger one too.
        const QSizeF size = SizeOf(frame);
        const double smaller = std::min(size.width(), size.height());
        out << "Scale " << static_cast<float>(size.width() / smaller) << ' '
            << static_cast<float>(size.height() / smaller) << " -1\nTranslate 0 0 -5\n";
    } else {
        // -1 to 1 is what the smaller side sees here too.
        const double smaller = std::min(SizeOf(frame).width(), SizeOf(frame).height());
        const float units = frame.camera.UnitsPerPixel(SizeOf(frame));
        const float scale = isParallel ? 2.0F / (units * static_cast<float>(smaller)) : 1.0F;
        Camera camera = frame.camera;
        camera.distance = DistanceBeforeAll(frame);
        out << "Scale " << scale << ' ' << scale << " -1\n";
        WriteRibTransform(out, camera.View());
    }
}

void WriteRibLights(TextStream& out, const RaytraceScene& scene)
{
    out << "LightSource \"ambientlight\" 1 \"float intensity\" [1]\n";
    if (scene.flat) {
        WriteDistantLight(out, 2, {0.0F, 0.0F, 1.0F}, 1.0F - kSkyIntensity / 2.0F);
        return;
    }
    const Camera& camera = scene.frame.camera;
    const auto world = [&](const Light& light) {
        return light.towards[0] * camera.Right() + light.towards[1] * camera.Up() +
               light.towards[2] * camera.Back();
    };
    WriteDistantLight(out, 2, world(kKeyLight), kKeyLight.intensity);
    WriteDistantLight(out, 3, world(kFillLight), kFillLight.intensity);
    WriteDistantLight(out, 4, camera.Up(), kSkyIntensity / 2.0F);
    WriteDistantLight(out, 5, -camera.Up(), -kSkyIntensity / 2.0F);
}

void WriteRibBackdrop(TextStream& out, const RaytraceScene& scene)
{
    const BackdropColours colours =
        scene.flat ? kFlatBackdrop
                   : BackdropColoursOf(scene.frame.background, scene.frame.backdrop);
    const BackdropPlane plane(scene);
    // A little beyond the picture, whose edges are smoothed.
    constexpr float kTop = -0.05F;
    constexpr float kStep = 1.1F / kBackdropStrips;
    out << "AttributeBegin\nSides 2\nSurface \"matte\" \"float Ka\" [1] \"float Kd\" [0]\n";
    for (int i = 0; i < kBackdropStrips; ++i) {
        const float upper = kTop + kStep * static_cast<float>(i);
        WriteStrip(out, plane, colours, upper, upper + kStep);
    }
    out << "AttributeEnd\n";
}

}  // namespace studio
