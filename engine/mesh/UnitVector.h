#pragma once

#include <QVector3D>

#include <algorithm>
#include <cmath>

namespace studio {

/// The direction, however short the vector is; `QVector3D::normalized` gives up below 0.00001. A
/// null vector has none.
[[nodiscard]] inline QVector3D UnitOr(const QVector3D& vector, const QVector3D& otherwise)
{
    const float largest =
        std::max({std::abs(vector.x()), std::abs(vector.y()), std::abs(vector.z())});
    return largest > 0.0F ? (vector / largest).normalized() : otherwise;
}

/// Of a triangle, its corners counter-clockwise; upwards for one without an area.
[[nodiscard]] inline QVector3D FaceNormal(const QVector3D& a, const QVector3D& b,
                                          const QVector3D& c)
{
    return UnitOr(QVector3D::crossProduct(UnitOr(b - a, {}), UnitOr(c - a, {})),
                  {0.0F, 1.0F, 0.0F});
}

}  // namespace studio
