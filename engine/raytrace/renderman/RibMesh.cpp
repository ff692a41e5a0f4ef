#include "RibMesh.h"

#include "CornerPlaces.h"
#include "RibTextures.h"
#include "TriangleList.h"
#include "WrapCoordinates.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

/// What is nearer to a tile's edge lies on it; of a tile.
constexpr float kOnEdge = 1.0e-4F;
/// Of one mesh. Triangles beyond this are left whole.
constexpr float kMostTiles = 2.0e6F;

struct Corner {
    std::uint32_t vertex = 0;  ///< of the file's list
    QVector2D place;
};
using Polygon = std::vector<Corner>;

struct Span {
    float first = 0.0F;  ///< whole numbers both
    float last = 1.0F;

    [[nodiscard]] float Tiles() const { return std::max(last - first, 1.0F); }
};

Span SpanOf(const Polygon& polygon, int axis)
{
    float low = polygon.front().place[axis];
    float high = low;
    for (const Corner& corner : polygon) {
        low = std::min(low, corner.place[axis]);
        high = std::max(high, corner.place[axis]);
    }
    return {std::floor(low + kOnEdge), std::ceil(high - kOnEdge)};
}

/// Gathers the lists of a `PointsPolygons`.
class PolygonList {
public:
    PolygonList(const Mesh& mesh, RibCoordinates coordinates)
        : m_vertices(mesh.vertices), m_coordinates(coordinates)
    {
    }

    void Add(const Polygon& triangle)
    {
        const float tiles = SpanOf(triangle, 0).Tiles() * SpanOf(triangle, 1).Tiles();
        if (m_coordinates == RibCoordinates::Plain || !(m_tiles + tiles <= kMostTiles)) {
            Append(triangle, {});
            return;
        }
        m_tiles += tiles;
        if (tiles == 1.0F) {
            Append(triangle, {SpanOf(triangle, 0).first, SpanOf(triangle, 1).first});
            return;
        }
        for (const Polygon& column : Cut(triangle, 0)) {
            for (const Polygon& piece : Cut(column, 1)) {
                Append(piece, {SpanOf(piece, 0).first, SpanOf(piece, 1).first});
            }
        }
    }

    void Write(TextStream& out) const;

private:
    [[nodiscard]] std::vector<Polygon> Cut(Polygon polygon, int axis);
    [[nodiscard]] Corner Between(const Corner& a, const Corner& b, float share);
    void Append(const Polygon& polygon, const QVector2D& tile);

    std::vector<Vertex> m_vertices;
    RibCoordinates m_coordinates;
    float m_tiles = 0.0F;
    std::vector<std::uint32_t> m_counts;
    std::vector<std::uint32_t> m_corners;
    std::vector<QVector2D> m_places;
};

Corner PolygonList::Between(const Corner& a, const Corner& b, float share)
{
    const Vertex& from = m_vertices[a.vertex];
    const Vertex& to = m_vertices[b.vertex];
    Vertex middle;
    QVector3D normal;
    for (std::size_t i = 0; i < 3; ++i) {
        middle.position[i] = from.position[i] + share * (to.position[i] - from.position[i]);
        normal[static_cast<int>(i)] = from.normal[i] + share * (to.normal[i] - from.normal[i]);
    }
    normal.normalize();
    middle.normal = {normal.x(), normal.y(), normal.z()};
    m_vertices.push_back(middle);
    return {static_cast<std::uint32_t>(m_vertices.size() - 1),
            a.place + share * (b.place - a.place)};
}

/// At every whole number between its ends along the axis.
std::vector<Polygon> PolygonList::Cut(Polygon polygon, int axis)
{
    std::vector<Polygon> pieces;
    const Span span = SpanOf(polygon, axis);
    for (float at = span.first + 1.0F; at < span.last; ++at) {
        Polygon below;
        Polygon above;
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const Corner& corner = polygon[i];
            const Corner& next = polygon[(i + 1) % polygon.size()];
            const auto beyond = [&](const Corner& c) {
                const float distance = c.place[axis] - at;
                return std::abs(distance) < kOnEdge ? 0.0F : distance;
            };
            const float here = beyond(corner);
            const float there = beyond(next);
            if (here <= 0.0F) {
                below.push_back(corner);
            }
            if (here >= 0.0F) {
                above.push_back(corner);
            }
            if (here * there < 0.0F) {
                const Corner middle = Between(corner, next, here / (here - there));
                below.push_back(middle);
                above.push_back(middle);
            }
        }
        if (below.size() > 2) {
            pieces.push_back(std::move(below));
        }
        polygon = std::move(above);
    }
    if (polygon.size() > 2) {
        pieces.push_back(std::move(polygon));
    }
    return pieces;
}

void PolygonList::Append(const Polygon& polygon, const QVector2D& tile)
{
    m_counts.push_back(static_cast<std::uint32_t>(polygon.size()));
    for (const Corner& corner : polygon) {
        m_corners.push_back(corner.vertex);
        const QVector2D place = corner.place - tile;
        m_places.push_back(m_coordinates == RibCoordinates::InTile ? RibTextures::InImage(place)
                                                                   : place);
    }
}

void PolygonList::Write(TextStream& out) const
{
    if (m_counts.empty()) {
        return;
    }
    out << "PointsPolygons [";
    for (const std::uint32_t count : m_counts) {
        out << count << ' ';
    }
    out << "]\n[";
    for (const std::uint32_t corner : m_corners) {
        out << corner << ' ';
    }
    out << "]\n\"P\" [";
    for (const Vertex& vertex : m_vertices) {
        out << vertex.position[0] << ' ' << vertex.position[1] << ' ' << vertex.position[2] << ' ';
    }
    out << "]\n\"N\" [";
    for (const Vertex& vertex : m_vertices) {
        out << vertex.normal[0] << ' ' << vertex.normal[1] << ' ' << vertex.normal[2] << ' ';
    }
    out << "]\n\"facevarying float[2] st\" [";
    for (const QVector2D& place : m_places) {
        out << place.x() << ' ' << place.y() << ' ';
    }
    out << "]\n";
}

}  // namespace

void WriteRibMesh(TextStream& out, const FrameItem& item, const CorvexDB::udtMaterial& material,
                  RibCoordinates coordinates)
{
    const WrapTerms wrap = WrapTermsOf(item, material);
    PolygonList polygons(*item.mesh, coordinates);
    Polygon triangle(3);
    for (const Corners& corners : TrianglesWithArea(*item.mesh)) {
        const std::array<QVector2D, 3> places = CornerPlaces(*item.mesh, corners, wrap);
        for (std::size_t i = 0; i < 3; ++i) {
            triangle[i] = {corners[i],
                           {wrap.flip.x() * places[i].x() + wrap.flip.z(),
                            wrap.flip.y() * places[i].y() + wrap.flip.w()}};
        }
        polygons.Add(triangle);
    }
    polygons.Write(out);
}

}  // namespace studio
