#pragma once

#include <QMatrix4x4>
#include <QVector3D>
#include <QVector4D>

namespace CorvexDB {
struct udtMaterial;
}

namespace studio {

struct FrameItem;

/// Where the coordinates of a picture on a surface come from; by name in the shader.
enum class CoordinateKind { None, Mesh, Spherical, Flat, Cylindrical };

/// How a fragment finds its place in the images. Places are counted in tiles, from the top left.
struct WrapTerms {
    CoordinateKind kind = CoordinateKind::Mesh;
    /// Spherical and cylindrical: the box around the shape becomes -1 to 1. Flat: in tiles.
    QMatrix4x4 wrapFromMesh;
    QMatrix3x3 wrapNormalFromMesh;
    QVector3D flatOffset;  ///< tiles from the corner of a side to the zero of the matrix
    QVector4D flip;        ///< place = flip.xy * place + flip.zw
    QVector4D crop;        ///< image = crop.xy + crop.zw * fraction of the tile
};

[[nodiscard]] WrapTerms WrapTermsOf(const FrameItem& item, const CorvexDB::udtMaterial& material);

}  // namespace studio
