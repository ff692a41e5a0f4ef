#pragma once

#include <QMatrix4x4>
#include <QPointF>
#include <QSizeF>
#include <QVector3D>

namespace studio {

struct Ray {
    QVector3D origin;
    QVector3D direction;  ///< unit length
    double begin = 0.0;   ///< along it; below 0 where what is behind the origin is seen too
};

/// Distances from the eye along its line of sight; in a parallel view they may be below 0.
struct DepthRange {
    float nearest = 0.01F;
    float farthest = 100.0F;
};

/// A parallel view has no eye: what is farther away is not smaller, and nothing is behind it.
enum class Lens { Perspective, Parallel };

/// An orbit camera in a right-handed world, y up. At yaw 0 and pitch 0 the eye is on +z of the
/// target; a growing yaw moves it to +x, a growing pitch up.
struct Camera {
    QVector3D target;
    float yawDegrees = 35.0F;
    float pitchDegrees = 20.0F;     ///< -90 to 90
    float distance = 4.0F;          ///< of the eye from the target, above 0
    float fovDegrees = 35.0F;       ///< across the smaller side of the picture
    Lens lens = Lens::Perspective;  ///< a parallel one shows the target's plane as large

    [[nodiscard]] QVector3D Eye() const;
    [[nodiscard]] QVector3D Right() const;
    [[nodiscard]] QVector3D Up() const;
    /// Unit length, from the target to the eye.
    [[nodiscard]] QVector3D Back() const;
    /// From world to eye space; the eye looks along -z.
    [[nodiscard]] QMatrix4x4 View() const;
    [[nodiscard]] QMatrix4x4 Projection(QSizeF size, DepthRange range) const;
    /// From the eye through a point of a picture of this size, origin at its top left.
    [[nodiscard]] Ray RayThrough(QPointF point, QSizeF size) const;
    /// World units that one pixel covers at the target, in a picture of this size.
    [[nodiscard]] float UnitsPerPixel(QSizeF size) const;

    bool operator==(const Camera&) const = default;
};

}  // namespace studio
