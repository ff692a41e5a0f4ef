#pragma once

#include <QMatrix4x4>
#include <QQuaternion>
#include <QVector2D>
#include <QVector3D>
#include <QVector4D>

#include <array>

namespace CorvexDB {
struct udtMaterial;
}

namespace studio {

struct FrameItem;

/// Where the coordinates of a picture on a surface come from; by name in the shader.
enum class CoordinateKind { None, Mesh, Spherical, Flat, Cylindrical };

/// How tiles lie on what a projection unrolls: place = across * x + down * y + offset.
struct TilePlane {
    QVector2D across{1.0F, 0.0F};
    QVector2D down{0.0F, 1.0F};
    QVector2D offset;

    [[nodiscard]] QVector2D LengthOf(const QVector2D& way) const
    {
        return across * way.x() + down * way.y();
    }
    [[nodiscard]] QVector2D PlaceOf(const QVector2D& unrolled) const
    {
        return LengthOf(unrolled) + offset;
    }
    bool operator==(const TilePlane&) const = default;
};

/// How a fragment finds its place in the images. Places are counted in tiles, from the top left.
struct WrapTerms {
    CoordinateKind kind = CoordinateKind::Mesh;
    /// Spherical and cylindrical: the box around the shape becomes -1 to 1. Flat: in tiles of the
    /// wrap by itself.
    QMatrix4x4 wrapFromMesh;
    QMatrix3x3 wrapNormalFromMesh;
    /// Flat: of the sides that face along x, y and z. The others: thrice the same.
    std::array<TilePlane, 3> tiles;
    QVector4D flip;  ///< place = flip.xy * place + flip.zw
    QVector4D crop;  ///< image = crop.xy + crop.zw * fraction of the tile
};

[[nodiscard]] WrapTerms WrapTermsOf(const FrameItem& item, const CorvexDB::udtMaterial& material);

/// Where a projection stands around a shape that it wraps, in scene units.
struct WrapStand {
    QMatrix4x4 worldFromSpace;  ///< of the axes in which the material is applied
    QVector3D middle;           ///< in that space, of what is wrapped, moved where that is seen
    QVector3D from;             ///< and the zero of the projection
    QQuaternion turn;           ///< of the projection's axes in that space
    QVector3D size;             ///< of the box, along the projection's axes
    /// One unrolled unit of the sides that face along x, y and z, across and down.
    std::array<QVector2D, 3> lengths;
    std::array<TilePlane, 3> tiles;  ///< of `WrapTerms`
};

[[nodiscard]] WrapStand WrapStandOf(FrameItem item, const CorvexDB::udtMaterial& material);

}  // namespace studio
