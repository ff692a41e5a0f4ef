#pragma once

#include "ImportedModel.h"

#include <span>

namespace studio {

/// Triangles as a file has them: any numbers, any indices. A normal may have any length; one of no
/// length is none.
struct RawMesh {
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    std::vector<CorvexMaterial::Rgb> colours;  ///< of the vertices, or empty
    std::size_t material = 0;
    bool hasNormals = false;
    bool hasCoordinates = false;
};

/// Corners that are no usable numbers take their triangles along. Without normals the surface is
/// smooth but for edges of more than 60 degrees; triangles of which only some corners have one face
/// where they face.
[[nodiscard]] ImportedMesh Finished(RawMesh raw);

/// Cuts a polygon with any number of corners, at least three, into triangles and appends their
/// corners as positions in the polygon.
void AppendTriangles(std::span<const QVector3D> polygon, std::vector<std::uint32_t>& corners);

}  // namespace studio
