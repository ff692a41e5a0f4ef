#include "OrbitMotion.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

constexpr float kDegreesPerPixel = 0.5F;
constexpr float kSteepestPitch = 89.0F;
constexpr float kZoomPerStep = 0.87F;
constexpr float kNearestOfHome = 0.05F;
constexpr float kFarthestOfHome = 20.0F;

}  // namespace

Camera Turned(Camera camera, QPointF pixels)
{
    const float yaw = camera.yawDegrees - static_cast<float>(pixels.x()) * kDegreesPerPixel;
    const float pitch = camera.pitchDegrees + static_cast<float>(pixels.y()) * kDegreesPerPixel;
    camera.yawDegrees = std::remainder(yaw, 360.0F);
    camera.pitchDegrees = std::clamp(pitch, -kSteepestPitch, kSteepestPitch);
    return camera;
}

Camera Panned(Camera camera, QPointF pixels, QSizeF size)
{
    const float unit = camera.UnitsPerPixel(size);
    camera.target -= static_cast<float>(pixels.x()) * unit * camera.Right();
    camera.target += static_cast<float>(pixels.y()) * unit * camera.Up();
    return camera;
}

Camera Zoomed(Camera camera, float steps, float homeDistance)
{
    camera.distance = std::clamp(camera.distance * std::pow(kZoomPerStep, steps),
                                 homeDistance * kNearestOfHome, homeDistance * kFarthestOfHome);
    return camera;
}

}  // namespace studio
