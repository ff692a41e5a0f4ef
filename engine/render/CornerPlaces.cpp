#include "CornerPlaces.h"

#include "WrapCoordinates.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace studio {
namespace {

constexpr float kHalfTurn = std::numbers::pi_v<float>;

QVector3D VectorOf(const std::array<float, 3>& numbers)
{
    return {numbers[0], numbers[1], numbers[2]};
}

/// Seen from the side of the box that the surface faces most, upright.
struct FlatSide {
    explicit FlatSide(const QVector3D& normal)
    {
        const auto size = [&](int axis) { return std::abs(normal[axis]); };
        const auto sign = [&](int axis) { return normal[axis] < 0.0F ? -1.0F : 1.0F; };
        if (size(1) > size(0) && size(1) > size(2)) {
            facing = 1;
            across = 0;
            down = 2;
            turn = {1.0F, sign(1)};
        } else if (size(0) > size(2)) {
            facing = 0;
            across = 2;
            down = 1;
            turn = {-sign(0), -1.0F};
        } else {
            turn = {sign(2), -1.0F};
        }
    }

    [[nodiscard]] QVector2D Unrolled(const QVector3D& point) const
    {
        return {turn.x() * point[across], turn.y() * point[down]};
    }

    std::size_t facing = 2;
    int across = 0;
    int down = 1;
    QVector2D turn;
};

/// The three on one side of the seam, where the longitude jumps by a whole image.
void JoinAtSeam(std::array<QVector2D, 3>& places)
{
    const auto [low, high] = std::minmax({places[0].x(), places[1].x(), places[2].x()});
    if (high - low > 0.5F) {
        for (QVector2D& place : places) {
            place.setX(place.x() < 0.5F ? place.x() + 1.0F : place.x());
        }
    }
}

/// A pole has no longitude of its own.
void PlacePoles(const std::array<QVector3D, 3>& points, std::array<QVector2D, 3>& places)
{
    for (std::size_t i = 0; i < 3; ++i) {
        if (IsAtPole(points[i])) {
            places[i].setX((places[(i + 1) % 3].x() + places[(i + 2) % 3].x()) / 2.0F);
        }
    }
}

}  // namespace

bool IsAtPole(const QVector3D& point)
{
    constexpr float kAtPole = 1.0e-5F;
    return std::hypot(point.x(), point.z()) < kAtPole;
}

QVector2D RoundPlace(const QVector3D& p, CoordinateKind kind)
{
    const float longitude = 0.5F + std::atan2(p.x(), p.z()) / (2.0F * kHalfTurn);
    const float down = kind == CoordinateKind::Spherical
                           ? std::atan2(std::hypot(p.x(), p.z()), p.y()) / kHalfTurn
                           : 0.5F - 0.5F * p.y();
    return {longitude, down};
}

std::array<QVector2D, 3> CornerPlaces(const Mesh& mesh, const std::array<std::uint32_t, 3>& corners,
                                      const WrapTerms& wrap)
{
    std::array<QVector2D, 3> places;
    const auto vertex = [&](std::size_t i) -> const Vertex& { return mesh.vertices[corners[i]]; };
    const auto wrapped = [&](std::size_t i) {
        return wrap.wrapFromMesh.map(VectorOf(vertex(i).position));
    };
    if (wrap.kind == CoordinateKind::Flat) {
        const QMatrix4x4 turned(wrap.wrapNormalFromMesh);
        const FlatSide side(turned.mapVector(
            VectorOf(vertex(0).normal) + VectorOf(vertex(1).normal) + VectorOf(vertex(2).normal)));
        for (std::size_t i = 0; i < 3; ++i) {
            places[i] = wrap.tiles[side.facing].PlaceOf(side.Unrolled(wrapped(i)));
        }
    } else if (wrap.kind == CoordinateKind::Mesh) {
        for (std::size_t i = 0; i < 3; ++i) {
            places[i] = wrap.tiles[0].PlaceOf({vertex(i).uv[0], 1.0F - vertex(i).uv[1]});
        }
    } else {
        const std::array points{wrapped(0), wrapped(1), wrapped(2)};
        for (std::size_t i = 0; i < 3; ++i) {
            places[i] = RoundPlace(points[i], wrap.kind);
        }
        JoinAtSeam(places);
        PlacePoles(points, places);
        for (QVector2D& place : places) {
            place = wrap.tiles[0].PlaceOf(place);
        }
    }
    return places;
}

}  // namespace studio
