#pragma once

#include "Frame.h"

#include <QVector2D>
#include <QVector3D>

#include <array>
#include <cstdint>

namespace studio {

struct WrapTerms;
enum class CoordinateKind;

/// Where the corners of a triangle lie in the item's images: x to the right and y down, in tiles,
/// before flips and crop. The shader decides this for every point; here it is decided once per
/// triangle which side a flat wrap takes and on which side of the seam a round one lies. At a pole,
/// which has every longitude, it is that between the other two.
[[nodiscard]] std::array<QVector2D, 3>
CornerPlaces(const Mesh& mesh, const std::array<std::uint32_t, 3>& corners, const WrapTerms& wrap);

/// Of a point in the space of a spherical or cylindrical wrap, unrolled.
[[nodiscard]] QVector2D RoundPlace(const QVector3D& point, CoordinateKind kind);

[[nodiscard]] bool IsAtPole(const QVector3D& point);

}  // namespace studio
