#pragma once

#include "Mesh.h"

#include <QVector2D>
#include <QVector3D>

#include <functional>
#include <memory>
#include <span>

namespace studio {

/// A surface over u and v from 0 to 1. Seen from outside, u grows to the right and v upward.
using Surface = std::function<QVector3D(float u, float v)>;

/// Fields across the surface, not points.
struct Grid {
    int columns = 32;
    int rows = 32;
};

/// Normals follow the surface, poles included; u and v are the texture coordinates.
[[nodiscard]] std::shared_ptr<const Mesh> ParametricMesh(const Surface& surface, Grid grid);

[[nodiscard]] std::shared_ptr<const Mesh> SphereMesh(float radius);

/// The curve through the points (distance from the axis, height), turned around the y axis. The
/// points run so that the outside is on their right: upward for an outer wall.
[[nodiscard]] std::shared_ptr<const Mesh> LatheMesh(std::span<const QVector2D> profile, Grid grid);

/// Winds `turns` times around its axis and `coils` times around its ring.
struct Knot {
    int turns = 2;
    int coils = 3;
    float radius = 1.0F;
    float tube = 0.3F;
};
[[nodiscard]] std::shared_ptr<const Mesh> KnotMesh(const Knot& knot);

/// A cube around the origin; every side has all of the texture.
[[nodiscard]] std::shared_ptr<const Mesh> RoundedCubeMesh(float halfSide, float rounding);

}  // namespace studio
