#pragma once

#include "Mesh.h"
#include "TextStream.h"

#include <QMatrix4x4>

#include <string>

namespace studio {

struct FrameItem;

// POV-Ray's world is left-handed: everything is mirrored in z on its way there.

[[nodiscard]] inline QVector3D PovRayPoint(const QVector3D& point)
{
    return {point.x(), point.y(), -point.z()};
}

/// The same transformation between mirrored spaces.
[[nodiscard]] QMatrix4x4 PovRayMatrix(const QMatrix4x4& matrix);

/// ` matrix <...>`.
void WriteMatrix(TextStream& out, const QMatrix4x4& matrix);

/// A `mesh2` declaration with normals and the mesh's own texture coordinates. Triangles without
/// area are left out, which POV-Ray warns of.
void DeclareMesh(TextStream& out, const std::string& name, const Mesh& mesh);

/// The same, with the coordinates of the item's flat wrap, in tiles.
void DeclareFlatWrappedMesh(TextStream& out, const std::string& name, const FrameItem& item);

}  // namespace studio
