#include "TileCutting.h"

#include <QVector3D>

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

/// What is nearer to a tile's edge lies on it; of a tile.
constexpr float kOnEdge = 1.0e-4F;
/// Of one mesh. Triangles beyond this are left whole.
constexpr float kMostTiles = 2.0e6F;

struct Span {
    float first = 0.0F;  ///< whole numbers both
    float last = 1.0F;

    [[nodiscard]] float Tiles() const { return std::max(last - first, 1.0F); }
};

Span SpanOf(const PlacedPolygon& polygon, int axis)
{
    float low = polygon.front().place[axis];
    float high = low;
    for (const PlacedCorner& corner : polygon) {
        low = std::min(low, corner.place[axis]);
        high = std::max(high, corner.place[axis]);
    }
    return {std::floor(low + kOnEdge), std::ceil(high - kOnEdge)};
}

}  // namespace

void TileCutter::Cut(const PlacedPolygon& polygon, const Take& take)
{
    const float tiles = SpanOf(polygon, 0).Tiles() * SpanOf(polygon, 1).Tiles();
    if (!(m_tiles + tiles <= kMostTiles)) {
        m_leftSomeWhole = true;
        take(polygon, {});
        return;
    }
    m_tiles += tiles;
    const auto takeInTile = [&](const PlacedPolygon& piece) {
        take(piece, {SpanOf(piece, 0).first, SpanOf(piece, 1).first});
    };
    if (tiles == 1.0F) {
        takeInTile(polygon);
        return;
    }
    for (const PlacedPolygon& column : CutAlong(polygon, 0)) {
        for (const PlacedPolygon& piece : CutAlong(column, 1)) {
            takeInTile(piece);
        }
    }
}

PlacedCorner TileCutter::Between(const PlacedCorner& a, const PlacedCorner& b, float share)
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
std::vector<PlacedPolygon> TileCutter::CutAlong(PlacedPolygon polygon, int axis)
{
    std::vector<PlacedPolygon> pieces;
    const Span span = SpanOf(polygon, axis);
    for (float at = span.first + 1.0F; at < span.last; ++at) {
        PlacedPolygon below;
        PlacedPolygon above;
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const PlacedCorner& corner = polygon[i];
            const PlacedCorner& next = polygon[(i + 1) % polygon.size()];
            const auto beyond = [&](const PlacedCorner& c) {
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
                const PlacedCorner middle = Between(corner, next, here / (here - there));
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

}  // namespace studio
