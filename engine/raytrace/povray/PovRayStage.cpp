#include "PovRayStage.h"

#include "Backdrop.h"
#include "MaterialModel.h"
#include "MirrorModel.h"
#include "PovRayMesh.h"
#include "Quoting.h"
#include "SurfaceImages.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

constexpr float kFlatLight = 1.0F - kSkyIntensity / 2.0F;
constexpr float kRadiansPerDegree = 0.017453292F;

/// The camera's axes, each half as long as the picture is wide and high: at distance 1, in a
/// parallel view at any.
struct CameraAxes {
    QVector3D right;
    QVector3D up;
    QVector3D forward;
};

CameraAxes AxesOf(const Frame& frame)
{
    const auto width = static_cast<float>(std::max(frame.width, 1));
    const auto height = static_cast<float>(std::max(frame.height, 1));
    const Camera& camera = frame.camera;
    const float half = std::tan(camera.fovDegrees / 2.0F * kRadiansPerDegree) *
                       (camera.lens == Lens::Parallel ? camera.distance : 1.0F);
    const float smaller = std::min(width, height);
    return {camera.Right() * half * width / smaller, camera.Up() * half * height / smaller,
            -camera.Back()};
}

QVector3D WorldFromEye(const Camera& camera, const QVector3D& direction)
{
    return direction.x() * camera.Right() + direction.y() * camera.Up() +
           direction.z() * camera.Back();
}

/// Far enough to be beyond everything, near enough for POV-Ray to hit it exactly.
float BackdropDistance(const Frame& frame, const QVector3D& forward)
{
    float farthest = 1.0F;
    for (const QVector3D& corner : WorldBounds(frame.items).Corners()) {
        farthest = std::max(farthest, QVector3D::dotProduct(corner - frame.camera.Eye(), forward));
    }
    return 2.0F * farthest;
}

void WriteLight(TextStream& out, const QVector3D& towards, float intensity, bool highlights)
{
    out << "light_source { <" << 1000.0F * PovRayPoint(towards) << "> rgb " << intensity
        << " parallel point_at <0,0,0>" << (highlights ? "" : " shadowless") << " }\n";
}

void WriteGradientColours(TextStream& out, const BackdropColours& colours, float half)
{
    // Even steps between encoded colours, which POV-Ray would mix as light.
    constexpr int kSteps = 16;
    out << " color_map {";
    for (int i = 0; i <= kSteps; ++i) {
        const float up = static_cast<float>(i) / kSteps;
        out << " [" << 0.5F + half * (2.0F * up - 1.0F) << " rgb <";
        for (std::size_t k = 0; k < 3; ++k) {
            const float encoded = colours.bottom[k] + up * (colours.top[k] - colours.bottom[k]);
            out << (k == 0 ? "" : ",") << LinearFromEncoded(encoded);
        }
        out << ">]";
    }
    out << " }";
}

}  // namespace

void WriteCamera(TextStream& out, const RaytraceScene& scene)
{
    if (scene.flat) {
        out << "camera { orthographic location -5*z direction z right 2*x up 2*y }\n";
        return;
    }
    // Lengths along its own axes, which `look_at` then turns: given in the world they are never
    // perpendicular to the last digit, which POV-Ray says in every run.
    const CameraAxes axes = AxesOf(scene.frame);
    const Camera& camera = scene.frame.camera;
    const QVector3D eye = camera.target + DistanceBeforeAll(scene.frame) * camera.Back();
    out << "camera {\n"
        << (camera.lens == Lens::Parallel ? "  orthographic\n" : "") << "  location <"
        << PovRayPoint(eye) << ">\n  sky <" << PovRayPoint(camera.Up()) << ">\n  right "
        << 2.0F * axes.right.length() << "*x\n  up " << 2.0F * axes.up.length()
        << "*y\n  direction z\n  look_at <" << PovRayPoint(camera.target) << ">\n}\n";
}

void WriteLights(TextStream& out, const RaytraceScene& scene)
{
    if (scene.flat) {
        // No highlight: it would lie over the whole picture.
        WriteLight(out, {0.0F, 0.0F, 1.0F}, kFlatLight, false);
        return;
    }
    const Camera& camera = scene.frame.camera;
    const auto write = [&](const Light& light, bool highlights) {
        const QVector3D towards(light.towards[0], light.towards[1], light.towards[2]);
        WriteLight(out, WorldFromEye(camera, towards), light.intensity, highlights);
    };
    write(kKeyLight, true);
    write(kFillLight, false);
    WriteLight(out, camera.Up(), kSkyIntensity / 2.0F, false);
    WriteLight(out, -camera.Up(), -kSkyIntensity / 2.0F, false);
}

void WriteBackdrop(TextStream& out, const RaytraceScene& scene)
{
    if (scene.flat) {
        out << "background { rgb 1 }\n";
        return;
    }
    const CameraAxes axes = AxesOf(scene.frame);
    const float distance = BackdropDistance(scene.frame, axes.forward);
    const QVector3D middle = scene.frame.camera.Eye() + distance * axes.forward;
    const bool isParallel = scene.frame.camera.lens == Lens::Parallel;
    const float halfHeight = (isParallel ? 1.0F : distance) * axes.up.length();
    constexpr float kShare = 0.05F;  // of the gradient; the rest is what bent rays meet
    out << "plane { z, 0\n  pigment { gradient y";
    WriteGradientColours(out, BackdropColoursOf(scene.frame.background, scene.frame.backdrop),
                         kShare);
    const float length = halfHeight / kShare;
    out << " translate -0.5*y scale " << length
        << " }\n  finish { ambient 0 diffuse 0 emission 1 }\n"
        << "  no_shadow no_reflection";
    QMatrix4x4 place(1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F,
                     0.0F, 0.0F, 1.0F);
    place.setColumn(0, PovRayPoint(axes.right.normalized()).toVector4D());
    place.setColumn(1, PovRayPoint(axes.up.normalized()).toVector4D());
    place.setColumn(2, PovRayPoint(axes.forward).toVector4D());
    place.setColumn(3, QVector4D(PovRayPoint(middle), 1.0F));
    WriteMatrix(out, place);
    out << "\n}\n";
}

void WriteSurroundings(TextStream& out, const RaytraceScene& scene, RaytraceImages& images)
{
    if (const std::string file = SharedEnvironment(scene); !file.empty()) {
        const RaytraceImage image = images.ImageOf(file);
        out << "sky_sphere { pigment { image_map { " << image.kind << ' '
            << PovRayString(image.path)
            << " gamma srgb interpolate 2 } warp { spherical orientation z dist_exp 0 }"
               " matrix <0,0,1, 0,1,0, 1,0,0, 0,0,0> } }\n";
        return;
    }
    out << "sky_sphere { pigment { gradient y color_map {";
    for (const SkyBand& band : kSky) {
        out << " [" << band.height << " rgb " << band.light << ']';
    }
    out << " } scale 2 translate -y } }\n";
}

}  // namespace studio
