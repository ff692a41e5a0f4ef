#pragma once

#include "Mesh.h"

#include <QVector2D>

#include <functional>

namespace studio {

struct PlacedCorner {
    std::uint32_t vertex = 0;
    QVector2D place;  ///< in tiles
};
using PlacedPolygon = std::vector<PlacedCorner>;

/// Cuts polygons where a tile of their images ends, for those who only know the inside of an image.
class TileCutter {
public:
    using Take = std::function<void(const PlacedPolygon& piece, const QVector2D& tile)>;

    explicit TileCutter(std::vector<Vertex> vertices) : m_vertices(std::move(vertices)) {}

    /// Gives every piece away with the first place of its tile. One of a great many tiles is given
    /// whole once there are millions of pieces.
    void Cut(const PlacedPolygon& polygon, const Take& take);
    /// Those that were given and those at the cuts.
    [[nodiscard]] const std::vector<Vertex>& Vertices() const { return m_vertices; }
    [[nodiscard]] bool LeftSomeWhole() const { return m_leftSomeWhole; }

private:
    [[nodiscard]] std::vector<PlacedPolygon> CutAlong(PlacedPolygon polygon, int axis);
    [[nodiscard]] PlacedCorner Between(const PlacedCorner& a, const PlacedCorner& b, float share);

    std::vector<Vertex> m_vertices;
    float m_tiles = 0.0F;
    bool m_leftSomeWhole = false;
};

}  // namespace studio
