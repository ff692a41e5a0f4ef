#include "WrapCoordinates.h"

#include "Frame.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

constexpr float kThinnest =
    1.0e-4F;  ///< of the longest side; a sheet has no thickness to divide by

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

QMatrix4x4 Scaled(const QVector3D& scale, const QVector3D& from, const QMatrix4x4& spaceFromMesh)
{
    QMatrix4x4 matrix;
    matrix.scale(scale);
    matrix.translate(-from);
    return matrix * spaceFromMesh;
}

float TilesPerUnit(const CorvexDB::udtMaterial& material)
{
    const float tiles = material.TilesPerUnit;
    return std::isfinite(tiles) && tiles > 0.0F ? tiles : 1.0F;
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

void SetFlat(const CorvexDB::udtMaterial& material, const WrapSpace& space, WrapTerms& terms)
{
    if (material.FlatWrap == CorvexDB::FlatWrapType::TileByUnit) {
        const float tiles = TilesPerUnit(material);
        const QVector3D begin = space.shared ? QVector3D() : space.centre;
        terms.wrapFromMesh = Scaled({tiles, tiles, tiles}, begin, space.spaceFromMesh);
        terms.flatOffset = space.shared ? QVector3D() : tiles / 2.0F * space.size;
        return;
    }
    const QVector3D tiles = TilesAcross(material, space.size);
    terms.wrapFromMesh = Scaled(tiles / space.size, space.centre, space.spaceFromMesh);
    terms.flatOffset = tiles / 2.0F;
}

void SetWrap(const FrameItem& item, const CorvexDB::udtMaterial& material, WrapTerms& terms)
{
    const WrapSpace space =
        item.applyMode == CorvexDB::ApplyMode::Relative ? RelativeSpace(item) : AbsoluteSpace(item);
    terms.wrapNormalFromMesh = space.spaceFromMesh.normalMatrix();
    if (material.Wrap == CorvexDB::WrapType::Flat) {
        terms.kind = CoordinateKind::Flat;
        SetFlat(material, space, terms);
        return;
    }
    terms.kind = material.Wrap == CorvexDB::WrapType::Cylindrical ? CoordinateKind::Cylindrical
                                                                  : CoordinateKind::Spherical;
    terms.wrapFromMesh =
        Scaled(QVector3D(2.0F, 2.0F, 2.0F) / space.size, space.centre, space.spaceFromMesh);
}

float FiniteOr(float value, float otherwise)
{
    return std::isfinite(value) ? value : otherwise;
}

}  // namespace

WrapTerms WrapTermsOf(const FrameItem& item, const CorvexDB::udtMaterial& material)
{
    WrapTerms terms;
    if (item.coordinates == CorvexSG::CoordinateMode::FromWrap) {
        SetWrap(item, material, terms);
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

}  // namespace studio
