#pragma once

#include <QMatrix4x4>
#include <QPointF>
#include <QSizeF>
#include <QVector3D>

namespace studio {

struct Ray {
    QVector3D origin;
    QVector3D direction;  ///< unit length
};

/// Distances from the eye along its line of sight.
struct DepthRange {
    float nearest = 0.01F;
    float farthest = 100.0F;
};

/// An orbit camera in a right-handed world, y up. At yaw 0 and pitch 0 the eye is on +z of the
/// target; a growing yaw moves it to +x, a growing pitch up.
struct Camera {
    QVector3D target;
    float yawDegrees = 35.0F;
    float pitchDegrees = 20.0F;  ///< -90 to 90
    float distance = 4.0F;       ///< of the eye from the target, above 0
    float fovDegrees = 35.0F;    ///< across the smaller side of the picture

    [[nodiscard]] QVector3D Eye() const;
    [[nodiscard]] QVector3D Right() const;
    [[nodiscard]] QVector3D Up() const;
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
