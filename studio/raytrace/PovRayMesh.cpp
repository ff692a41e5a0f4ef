#include "studio/raytrace/PovRayMesh.h"

#include "studio/render/Frame.h"
#include "studio/render/TextureWrap.h"

#include <QVector2D>
#include <QVector4D>

#include <algorithm>
#include <cmath>
#include <unordered_map>

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

struct Corners {
    std::uint32_t a;
    std::uint32_t b;
    std::uint32_t c;
};

std::vector<Corners> TrianglesWithArea(const Mesh& mesh)
{
    std::vector<Corners> triangles;
    triangles.reserve(mesh.indices.size() / 3);
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const Corners corners{mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
        const QVector3D a = Finite(PositionOf(mesh.vertices[corners.a]));
        const QVector3D ab = Finite(PositionOf(mesh.vertices[corners.b])) - a;
        const QVector3D ac = Finite(PositionOf(mesh.vertices[corners.c])) - a;
        const float longest = std::max(ab.lengthSquared(), ac.lengthSquared());
        if (QVector3D::crossProduct(ab, ac).length() > 1.0e-7F * longest && longest > 0.0F) {
            triangles.push_back(corners);
        }
    }
    return triangles;
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

void WriteFaces(TextStream& out, const std::vector<Corners>& triangles)
{
    out << "  face_indices { " << triangles.size() << '\n';
    for (const Corners& corners : triangles) {
        out << ",<" << corners.a << ',' << corners.b << ',' << corners.c << '>';
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

/// As the shader does it for every point, here for whole triangles: seen from the side of the box
/// that the surface faces most.
struct FlatSide {
    explicit FlatSide(const QVector3D& normal)
    {
        const QVector3D facing(std::abs(normal.x()), std::abs(normal.y()), std::abs(normal.z()));
        const auto sign = [](float value) { return value < 0.0F ? -1.0F : 1.0F; };
        if (facing.y() > facing.x() && facing.y() > facing.z()) {
            across = 0;
            down = 2;
            turn = {1.0F, sign(normal.y())};
        } else if (facing.x() > facing.z()) {
            across = 2;
            down = 1;
            turn = {-sign(normal.x()), -1.0F};
        } else {
            across = 0;
            down = 1;
            turn = {sign(normal.z()), -1.0F};
        }
    }

    [[nodiscard]] QVector2D PlaceOf(const QVector3D& point, const QVector3D& offset) const
    {
        return {turn.x() * point[across] + offset[across], turn.y() * point[down] + offset[down]};
    }

    int across = 0;
    int down = 1;
    QVector2D turn;
};

void WriteFlatPlaces(TextStream& out, const Mesh& mesh, const std::vector<Corners>& triangles,
                     const WrapTerms& wrap)
{
    const QMatrix4x4 turned(wrap.wrapNormalFromMesh);
    out << "  uv_vectors { " << 3 * triangles.size() << '\n';
    for (const Corners& corners : triangles) {
        const std::array vertices{&mesh.vertices[corners.a], &mesh.vertices[corners.b],
                                  &mesh.vertices[corners.c]};
        const FlatSide side(turned.mapVector(NormalOf(*vertices[0]) + NormalOf(*vertices[1]) +
                                             NormalOf(*vertices[2])));
        for (const Vertex* vertex : vertices) {
            const QVector2D place =
                side.PlaceOf(wrap.wrapFromMesh.map(PositionOf(*vertex)), wrap.flatOffset);
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

using Edge = std::pair<std::uint32_t, std::uint32_t>;
struct EdgeHash {
    std::size_t operator()(const Edge& edge) const
    {
        return std::hash<std::uint64_t>()(std::uint64_t{edge.first} << 32U | edge.second);
    }
};

/// Vertices in one place count as one, whatever their normals and texture coordinates.
std::vector<std::uint32_t> WeldedVertices(const Mesh& mesh)
{
    const float step = std::max(mesh.bounds.Radius(), 1.0e-20F) * 1.0e-5F;
    const auto cell = [step](float value) {
        return static_cast<std::uint64_t>(static_cast<std::int64_t>(std::lround(value / step)));
    };
    std::unordered_map<std::uint64_t, std::uint32_t> places;
    std::vector<std::uint32_t> welded;
    welded.reserve(mesh.vertices.size());
    for (const Vertex& vertex : mesh.vertices) {
        const QVector3D p = Finite(PositionOf(vertex));
        const std::uint64_t place = (cell(p.x()) * 73856093U) ^ (cell(p.y()) * 19349663U << 20U) ^
                                    (cell(p.z()) * 83492791U << 40U);
        welded.push_back(
            places.emplace(place, static_cast<std::uint32_t>(welded.size())).first->second);
    }
    return welded;
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
    const std::vector<Corners> triangles = TrianglesWithArea(*item.mesh);
    out << "#declare " << name << " = mesh2 {\n";
    WriteVertices(out, *item.mesh);
    WriteFlatPlaces(out, *item.mesh, triangles, WrapTermsOf(item, *item.material));
    WriteFaces(out, triangles);
    WriteCornerIndices(out, triangles.size());
    out << "}\n";
}

bool HasArea(const Mesh& mesh)
{
    return !TrianglesWithArea(mesh).empty();
}

bool IsClosed(const Mesh& mesh)
{
    const std::vector<std::uint32_t> welded = WeldedVertices(mesh);
    std::unordered_map<Edge, int, EdgeHash> open;
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        for (std::size_t k = 0; k < 3; ++k) {
            const std::uint32_t from = welded[mesh.indices[i + k]];
            const std::uint32_t to = welded[mesh.indices[i + (k + 1) % 3]];
            if (from != to) {
                open[{std::min(from, to), std::max(from, to)}] += from < to ? 1 : -1;
            }
        }
    }
    return std::all_of(open.begin(), open.end(), [](const auto& edge) { return edge.second == 0; });
}

}  // namespace studio
