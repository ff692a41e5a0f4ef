#include "WrapCoordinates.h"

#include "Frame.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace studio {
namespace {

constexpr float kThinnest =
    1.0e-4F;  ///< of the longest side; a sheet has no thickness to divide by
constexpr QVector2D kMiddleOfImage(0.5F, 0.5F);

/// A shape in the axes and units in which its material is wrapped around it.
struct WrapSpace {
    QMatrix4x4 spaceFromMesh;
    QVector3D centre;
    QVector3D size;
    bool shared;  ///< with other shapes
};

QVector3D SizeOf(const Bounds& bounds)
{
    const QVector3D size = bounds.maximum - bounds.minimum;
    const float longest = std::max({size.x(), size.y(), size.z()});
    const float least = std::max(longest * kThinnest, 1.0e-20F);
    return {std::max(size.x(), least), std::max(size.y(), least), std::max(size.z(), least)};
}

/// Turns with the shape and begins at its corner, but a unit is still one of the scene.
WrapSpace RelativeSpace(const FrameItem& item)
{
    const auto scale = [&](int column) {
        return item.worldFromMesh.column(column).toVector3D().length();
    };
    QMatrix4x4 spaceFromMesh;
    spaceFromMesh.scale(scale(0), scale(1), scale(2));
    Bounds box;
    for (const QVector3D& corner : item.mesh->bounds.Corners()) {
        box.Include(spaceFromMesh.map(corner));
    }
    return {spaceFromMesh, box.Centre(), SizeOf(box), false};
}

/// Stays with the scene, so that neighbouring shapes continue each other's tiles.
WrapSpace AbsoluteSpace(const FrameItem& item)
{
    const Bounds box = WorldBounds(item);
    return {item.worldFromMesh, box.Centre(), SizeOf(box), true};
}

float FiniteOr(float value, float otherwise)
{
    return std::isfinite(value) ? value : otherwise;
}

QVector3D FiniteVector(float x, float y, float z)
{
    return {FiniteOr(x, 0.0F), FiniteOr(y, 0.0F), FiniteOr(z, 0.0F)};
}

bool IsLength(float length)
{
    return std::isfinite(length) && length > 0.0F;
}

/// Of the ellipsoid in the box, which does not grow when the projection turns.
QVector3D TurnedSize(const QVector3D& size, const QQuaternion& turn)
{
    if (turn.isIdentity()) {
        return size;
    }
    const QMatrix3x3 axes = turn.toRotationMatrix();
    const auto along = [&](int axis) {
        return (QVector3D(axes(0, axis), axes(1, axis), axes(2, axis)) * size).length();
    };
    return {along(0), along(1), along(2)};
}

/// Around a shape: where the material puts the projection.
struct Projection {
    QVector3D offset;
    QQuaternion turn;
    QVector3D size;
    QVector2D tile;  ///< in scene units; none: the wrap decides

    Projection(const CorvexDB::udtMaterial& material, const QVector3D& box)
    {
        const CorvexDB::TextureProjection& given = material.Projection;
        offset = FiniteVector(given.x, given.y, given.z);
        if (const QVector3D angles = FiniteVector(given.turnX, given.turnY, given.turnZ);
            !angles.isNull()) {
            turn = QQuaternion::fromEulerAngles(angles);
        }
        size = TurnedSize(box, turn);
        const float width = material.TextureWidth;
        const float height = material.TextureHeight;
        tile = {IsLength(width) ? width : height, IsLength(height) ? height : width};
    }

    [[nodiscard]] std::optional<QVector2D> Tile() const
    {
        return IsLength(tile.x()) && IsLength(tile.y()) ? std::optional(tile) : std::nullopt;
    }
};

WrapSpace SpaceOf(const FrameItem& item)
{
    return item.applyMode == CorvexDB::ApplyMode::Relative ? RelativeSpace(item)
                                                           : AbsoluteSpace(item);
}

QMatrix4x4 Scaled(const QVector3D& scale, const QVector3D& from, const QQuaternion& turn,
                  const QMatrix4x4& spaceFromMesh)
{
    QMatrix4x4 matrix;
    matrix.scale(scale);
    if (!turn.isIdentity()) {
        matrix.rotate(turn.conjugated());
    }
    matrix.translate(-from);
    return matrix * spaceFromMesh;
}

/// What a projection unrolls, and the lengths there.
struct Unrolled {
    QVector2D length;  ///< scene units of one unrolled unit
    QVector2D middle;  ///< what rotates around, unrolled
    QVector2D place;   ///< and in tiles of the wrap by itself
};

TilePlane PlaneOf(const CorvexDB::udtMaterial& material, const Unrolled& unrolled,
                  const std::optional<QVector2D>& size)
{
    const float degrees = std::fmod(FiniteOr(material.TextureRotation, 0.0F), 360.0F);
    if (degrees == 0.0F && !size) {
        return {{1.0F, 0.0F}, {0.0F, 1.0F}, unrolled.place - unrolled.middle};
    }
    const float radians = qDegreesToRadians(degrees);
    const float cosine = std::cos(radians);
    const float sine = std::sin(radians);
    const QVector2D tile = size.value_or(unrolled.length);
    TilePlane plane;
    plane.across = unrolled.length.x() * QVector2D(cosine, sine) / tile;
    plane.down = unrolled.length.y() * QVector2D(-sine, cosine) / tile;
    plane.offset = (size ? kMiddleOfImage : unrolled.place) - plane.LengthOf(unrolled.middle);
    return plane;
}

/// Across and down the side of a box that faces along an axis.
QVector2D OnSide(std::size_t axis, const QVector3D& v)
{
    constexpr std::array<std::array<int, 2>, 3> kAxes{{{2, 1}, {0, 2}, {0, 1}}};
    return {v[kAxes[axis][0]], v[kAxes[axis][1]]};
}

float TilesPerUnit(const CorvexDB::udtMaterial& material)
{
    const float tiles = material.TilesPerUnit;
    return IsLength(tiles) ? tiles : 1.0F;
}

QVector3D TilesAcross(const CorvexDB::udtMaterial& material, const QVector3D& size)
{
    if (material.FlatWrap == CorvexDB::FlatWrapType::SizeToFit) {
        return {1.0F, 1.0F, 1.0F};
    }
    const auto whole = [&](float length) {
        return std::max(1.0F, std::round(length * TilesPerUnit(material)));
    };
    return {whole(size.x()), whole(size.y()), whole(size.z())};
}

/// The tiles of a flat wrap by itself.
struct FlatTiles {
    QVector3D from;    ///< what is zero
    QVector3D scale;   ///< in a scene unit
    QVector3D offset;  ///< from the corner of a side to zero
};

FlatTiles FlatTilesOf(const CorvexDB::udtMaterial& material, const WrapSpace& space,
                      const Projection& projection)
{
    if (material.FlatWrap != CorvexDB::FlatWrapType::TileByUnit) {
        const QVector3D tiles = TilesAcross(material, projection.size);
        return {space.centre + projection.offset, tiles / projection.size, tiles / 2.0F};
    }
    const float tiles = TilesPerUnit(material);
    const QVector3D scale(tiles, tiles, tiles);
    return space.shared
               ? FlatTiles{projection.offset, scale, {}}
               : FlatTiles{space.centre + projection.offset, scale, tiles / 2.0F * space.size};
}

void SetFlat(const CorvexDB::udtMaterial& material, const WrapSpace& space,
             const Projection& projection, WrapTerms& terms)
{
    const FlatTiles flat = FlatTilesOf(material, space, projection);
    terms.wrapFromMesh = Scaled(flat.scale, flat.from, projection.turn, space.spaceFromMesh);
    for (std::size_t axis = 0; axis < terms.tiles.size(); ++axis) {
        const QVector2D length = QVector2D(1.0F, 1.0F) / OnSide(axis, flat.scale);
        terms.tiles[axis] =
            PlaneOf(material, {length, {}, OnSide(axis, flat.offset)}, projection.Tile());
    }
}

/// Around the middle, and from pole to pole or from end to end.
QVector2D LengthsAround(CoordinateKind kind, const QVector3D& size)
{
    // Ramanujan's approximation, of the half axes.
    const auto perimeter = [](float a, float b) {
        return std::numbers::pi_v<float> *
               (3.0F * (a + b) - std::sqrt((3.0F * a + b) * (a + 3.0F * b)));
    };
    const float across = (size.x() + size.z()) / 4.0F;
    return {perimeter(size.x() / 2.0F, size.z() / 2.0F),
            kind == CoordinateKind::Cylindrical ? size.y()
                                                : perimeter(across, size.y() / 2.0F) / 2.0F};
}

void SetWrap(const FrameItem& item, const CorvexDB::udtMaterial& material, WrapTerms& terms)
{
    const WrapSpace space = SpaceOf(item);
    const Projection projection(material, space.size);
    terms.wrapNormalFromMesh = space.spaceFromMesh.normalMatrix();
    if (!projection.turn.isIdentity()) {
        terms.wrapNormalFromMesh =
            projection.turn.conjugated().toRotationMatrix() * terms.wrapNormalFromMesh;
    }
    if (material.Wrap == CorvexDB::WrapType::Flat) {
        terms.kind = CoordinateKind::Flat;
        SetFlat(material, space, projection, terms);
        return;
    }
    terms.kind = material.Wrap == CorvexDB::WrapType::Cylindrical ? CoordinateKind::Cylindrical
                                                                  : CoordinateKind::Spherical;
    terms.wrapFromMesh =
        Scaled(QVector3D(2.0F, 2.0F, 2.0F) / projection.size, space.centre + projection.offset,
               projection.turn, space.spaceFromMesh);
    terms.tiles.fill(PlaneOf(
        material, {LengthsAround(terms.kind, projection.size), kMiddleOfImage, kMiddleOfImage},
        projection.Tile()));
}

}  // namespace

WrapTerms WrapTermsOf(const FrameItem& item, const CorvexDB::udtMaterial& material)
{
    WrapTerms terms;
    if (item.coordinates == CorvexSG::CoordinateMode::FromWrap) {
        SetWrap(item, material, terms);
    } else {
        terms.tiles.fill(
            PlaneOf(material, {{1.0F, 1.0F}, kMiddleOfImage, kMiddleOfImage}, std::nullopt));
    }
    const bool flipU = material.WrapOrientationU;
    const bool flipV = material.WrapOrientationV;
    terms.flip = {flipU ? -1.0F : 1.0F, flipV ? -1.0F : 1.0F, flipU ? 1.0F : 0.0F,
                  flipV ? 1.0F : 0.0F};
    const CorvexDB::TexturePlacement& crop = material.Placement;
    terms.crop = {FiniteOr(crop.originU, 0.0F), FiniteOr(crop.originV, 0.0F),
                  FiniteOr(crop.scaleU, 1.0F), FiniteOr(crop.scaleV, 1.0F)};
    return terms;
}

WrapStand WrapStandOf(FrameItem item, const CorvexDB::udtMaterial& material)
{
    item.coordinates = CorvexSG::CoordinateMode::FromWrap;
    const WrapSpace space = SpaceOf(item);
    const Projection projection(material, space.size);
    WrapStand stand;
    stand.worldFromSpace = item.worldFromMesh * space.spaceFromMesh.inverted();
    stand.middle = stand.from = space.centre + projection.offset;
    stand.turn = projection.turn;
    stand.size = projection.size;
    const WrapTerms terms = WrapTermsOf(item, material);
    stand.tiles = terms.tiles;
    if (terms.kind != CoordinateKind::Flat) {
        stand.lengths.fill(LengthsAround(terms.kind, projection.size));
        return stand;
    }
    const FlatTiles flat = FlatTilesOf(material, space, projection);
    stand.from = flat.from;
    if (space.shared && material.FlatWrap == CorvexDB::FlatWrapType::TileByUnit) {
        stand.middle = space.centre;  // tiles of the scene go on for ever
    }
    for (std::size_t axis = 0; axis < stand.lengths.size(); ++axis) {
        stand.lengths[axis] = QVector2D(1.0F, 1.0F) / OnSide(axis, flat.scale);
    }
    return stand;
}

}  // namespace studio
