#include "OrbitMotion.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

constexpr float kDegreesPerPixel = 0.5F;
constexpr float kSteepestPitch = 89.0F;
constexpr float kZoomPerStep = 0.87F;
constexpr float kNearestOfHome = 0.002F;
constexpr float kFarthestOfHome = 50.0F;

}  // namespace

Camera Turned(const Camera& camera, QPointF pixels, const QVector3D& pivot)
{
    Camera turned = camera;
    const float yaw = camera.yawDegrees - static_cast<float>(pixels.x()) * kDegreesPerPixel;
    const float pitch = camera.pitchDegrees + static_cast<float>(pixels.y()) * kDegreesPerPixel;
    const float steepest = std::max(kSteepestPitch, std::abs(camera.pitchDegrees));
    turned.yawDegrees = std::remainder(yaw, 360.0F);
    turned.pitchDegrees = std::clamp(pitch, -steepest, steepest);
    // The pivot keeps its place before the eye, so the target turns round it too.
    const QVector3D place = pivot - camera.target;
    turned.target = pivot - QVector3D::dotProduct(place, camera.Right()) * turned.Right() -
                    QVector3D::dotProduct(place, camera.Up()) * turned.Up() -
                    QVector3D::dotProduct(place, camera.Back()) * turned.Back();
    return turned;
}

Camera Panned(Camera camera, QPointF pixels, QSizeF size, const QVector3D& held)
{
    const float depth = camera.lens == Lens::Parallel
                            ? camera.distance
                            : QVector3D::dotProduct(camera.Eye() - held, camera.Back());
    const float unit = camera.UnitsPerPixel(size) * depth / camera.distance;
    camera.target -= static_cast<float>(pixels.x()) * unit * camera.Right();
    camera.target += static_cast<float>(pixels.y()) * unit * camera.Up();
    return camera;
}

Camera Zoomed(Camera camera, float steps, const QVector3D& anchor, float homeDistance)
{
    const float nearest = std::min(camera.distance, homeDistance * kNearestOfHome);
    const float farthest = std::max(camera.distance, homeDistance * kFarthestOfHome);
    const float distance =
        std::clamp(camera.distance * std::pow(kZoomPerStep, steps), nearest, farthest);
    camera.target = anchor + distance / camera.distance * (camera.target - anchor);
    camera.distance = distance;
    return camera;
}

QVector3D PointOnTargetPlane(const Camera& camera, const Ray& ray)
{
    const QVector3D back = camera.Back();
    const float depth = QVector3D::dotProduct(ray.origin - camera.target, back);
    return ray.origin - depth / QVector3D::dotProduct(ray.direction, back) * ray.direction;
}

}  // namespace studio
