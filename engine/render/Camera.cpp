#include "Camera.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace studio {
namespace {

constexpr float kRadiansPerDegree = 0.017453292F;

float Sine(float degrees)
{
    return std::sin(degrees * kRadiansPerDegree);
}
float Cosine(float degrees)
{
    return std::cos(degrees * kRadiansPerDegree);
}

struct HalfExtent {
    float x = 1.0F;
    float y = 1.0F;
};

/// Half of the picture's width and height at distance 1 from the eye.
HalfExtent HalfExtentOf(float fovDegrees, QSizeF size)
{
    const auto smaller = static_cast<float>(std::max(1.0, std::min(size.width(), size.height())));
    const float half = std::tan(fovDegrees / 2.0F * kRadiansPerDegree);
    return {half * static_cast<float>(size.width()) / smaller,
            half * static_cast<float>(size.height()) / smaller};
}

}  // namespace

QVector3D Camera::Back() const
{
    return {Cosine(pitchDegrees) * Sine(yawDegrees), Sine(pitchDegrees),
            Cosine(pitchDegrees) * Cosine(yawDegrees)};
}

QVector3D Camera::Eye() const
{
    return target + distance * Back();
}

QVector3D Camera::Right() const
{
    return {Cosine(yawDegrees), 0.0F, -Sine(yawDegrees)};
}

QVector3D Camera::Up() const
{
    return {-Sine(pitchDegrees) * Sine(yawDegrees), Cosine(pitchDegrees),
            -Sine(pitchDegrees) * Cosine(yawDegrees)};
}

QMatrix4x4 Camera::View() const
{
    QMatrix4x4 view;
    view.lookAt(Eye(), target, Up());
    return view;
}

QMatrix4x4 Camera::Projection(QSizeF size, DepthRange range) const
{
    const HalfExtent half = HalfExtentOf(fovDegrees, size);
    QMatrix4x4 projection;
    if (lens == Lens::Parallel) {
        const float x = half.x * distance;
        const float y = half.y * distance;
        projection.ortho(-x, x, -y, y, range.nearest, range.farthest);
    } else {
        const float x = half.x * range.nearest;
        const float y = half.y * range.nearest;
        projection.frustum(-x, x, -y, y, range.nearest, range.farthest);
    }
    return projection;
}

Ray Camera::RayThrough(QPointF point, QSizeF size) const
{
    const HalfExtent half = HalfExtentOf(fovDegrees, size);
    const auto x = static_cast<float>(2.0 * point.x() / std::max(1.0, size.width()) - 1.0);
    const auto y = static_cast<float>(1.0 - 2.0 * point.y() / std::max(1.0, size.height()));
    const QVector3D aside = x * half.x * Right() + y * half.y * Up();
    if (lens == Lens::Parallel) {
        return {Eye() + distance * aside, -Back(), -std::numeric_limits<double>::infinity()};
    }
    return {Eye(), (aside - Back()).normalized()};
}

float Camera::UnitsPerPixel(QSizeF size) const
{
    return 2.0F * distance * HalfExtentOf(fovDegrees, size).y /
           static_cast<float>(std::max(1.0, size.height()));
}

}  // namespace studio
