#include "PovRayMesh.h"

#include "CornerPlaces.h"
#include "Frame.h"
#include "TriangleList.h"
#include "WrapCoordinates.h"

#include <QVector2D>

#include <cmath>

namespace studio {
namespace {

QVector3D PositionOf(const Vertex& vertex)
{
    return {vertex.position[0], vertex.position[1], vertex.position[2]};
}

QVector3D NormalOf(const Vertex& vertex)
{
    return {vertex.normal[0], vertex.normal[1], vertex.normal[2]};
}

float Finite(float value)
{
    return std::isfinite(value) ? value : 0.0F;
}

QVector3D Finite(const QVector3D& v)
{
    return {Finite(v.x()), Finite(v.y()), Finite(v.z())};
}

/// POV-Ray divides by the length of a normal.
QVector3D UsableNormal(const Vertex& vertex)
{
    const QVector3D normal = Finite(NormalOf(vertex));
    return normal.lengthSquared() > 1.0e-12F ? normal : QVector3D(0.0F, 1.0F, 0.0F);
}

void WriteVector(TextStream& out, const QVector3D& vector)
{
    out << ",<" << PovRayPoint(vector) << '>';
}

void WriteVertices(TextStream& out, const Mesh& mesh)
{
    out << "  vertex_vectors { " << mesh.vertices.size() << '\n';
    for (const Vertex& vertex : mesh.vertices) {
        WriteVector(out, Finite(PositionOf(vertex)));
    }
    out << "\n  }\n  normal_vectors { " << mesh.vertices.size() << '\n';
    for (const Vertex& vertex : mesh.vertices) {
        WriteVector(out, UsableNormal(vertex));
    }
    out << "\n  }\n";
}

void WriteFaces(TextStream& out, const TriangleList& triangles)
{
    out << "  face_indices { " << triangles.size() << '\n';
    for (const Corners& corners : triangles) {
        out << ",<" << corners[0] << ',' << corners[1] << ',' << corners[2] << '>';
    }
    out << "\n  }\n";
}

void WriteMeshPlaces(TextStream& out, const Mesh& mesh)
{
    out << "  uv_vectors { " << mesh.vertices.size() << '\n';
    for (const Vertex& vertex : mesh.vertices) {
        out << ",<" << vertex.uv[0] << ',' << vertex.uv[1] << '>';
    }
    out << "\n  }\n";
}

void WriteFlatPlaces(TextStream& out, const Mesh& mesh, const TriangleList& triangles,
                     const WrapTerms& wrap)
{
    out << "  uv_vectors { " << 3 * triangles.size() << '\n';
    for (const Corners& corners : triangles) {
        for (const QVector2D& place : CornerPlaces(mesh, corners, wrap)) {
            out << ",<" << place.x() << ',' << 1.0F - place.y() << '>';
        }
    }
    out << "\n  }\n";
}

void WriteCornerIndices(TextStream& out, std::size_t triangles)
{
    out << "  uv_indices { " << triangles << '\n';
    for (std::size_t i = 0; i < triangles; ++i) {
        out << ",<" << 3 * i << ',' << 3 * i + 1 << ',' << 3 * i + 2 << '>';
    }
    out << "\n  }\n";
}

}  // namespace

QMatrix4x4 PovRayMatrix(const QMatrix4x4& matrix)
{
    QMatrix4x4 mirror;
    mirror.scale(1.0F, 1.0F, -1.0F);
    return mirror * matrix * mirror;
}

void WriteMatrix(TextStream& out, const QMatrix4x4& matrix)
{
    out << " matrix <";
    for (int column = 0; column < 4; ++column) {
        out << (column == 0 ? "" : ", ") << matrix.column(column).toVector3D();
    }
    out << '>';
}

void DeclareMesh(TextStream& out, const std::string& name, const Mesh& mesh)
{
    out << "#declare " << name << " = mesh2 {\n";
    WriteVertices(out, mesh);
    WriteMeshPlaces(out, mesh);
    WriteFaces(out, TrianglesWithArea(mesh));
    out << "}\n";
}

void DeclareFlatWrappedMesh(TextStream& out, const std::string& name, const FrameItem& item)
{
    const TriangleList triangles = TrianglesWithArea(*item.mesh);
    out << "#declare " << name << " = mesh2 {\n";
    WriteVertices(out, *item.mesh);
    WriteFlatPlaces(out, *item.mesh, triangles, WrapTermsOf(item, *item.material));
    WriteFaces(out, triangles);
    WriteCornerIndices(out, triangles.size());
    out << "}\n";
}

}  // namespace studio
