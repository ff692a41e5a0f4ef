#include "RibMesh.h"

#include "CornerPlaces.h"
#include "RibTextures.h"
#include "TileCutting.h"
#include "TriangleList.h"
#include "WrapCoordinates.h"

namespace studio {
namespace {

/// Gathers the lists of a `PointsPolygons`.
class PolygonList {
public:
    PolygonList(const Mesh& mesh, RibCoordinates coordinates)
        : m_cutter(mesh.vertices), m_coordinates(coordinates)
    {
    }

    void Add(const PlacedPolygon& triangle)
    {
        if (m_coordinates == RibCoordinates::Plain) {
            Append(triangle, {});
            return;
        }
        m_cutter.Cut(triangle, [this](const PlacedPolygon& piece, const QVector2D& tile) {
            Append(piece, tile);
        });
    }

    void Write(TextStream& out) const;

private:
    void Append(const PlacedPolygon& polygon, const QVector2D& tile);

    TileCutter m_cutter;
    RibCoordinates m_coordinates;
    std::vector<std::uint32_t> m_counts;
    std::vector<std::uint32_t> m_corners;
    std::vector<QVector2D> m_places;
};

void PolygonList::Append(const PlacedPolygon& polygon, const QVector2D& tile)
{
    m_counts.push_back(static_cast<std::uint32_t>(polygon.size()));
    for (const PlacedCorner& corner : polygon) {
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
    for (const Vertex& vertex : m_cutter.Vertices()) {
        out << vertex.position[0] << ' ' << vertex.position[1] << ' ' << vertex.position[2] << ' ';
    }
    out << "]\n\"N\" [";
    for (const Vertex& vertex : m_cutter.Vertices()) {
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
    PlacedPolygon triangle(3);
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
