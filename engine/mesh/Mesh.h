#pragma once

#include <QVector3D>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace studio {

/// Layout of a vertex buffer: the renderer hands it to the graphics device as it is.
struct Vertex {
    std::array<float, 3> position{};
    std::array<float, 3> normal{};  ///< unit length, outward
    std::array<float, 2> uv{};      ///< v grows upward, 0 = bottom row
};

/// An axis-aligned box. Empty until a point is included.
struct Bounds {
    QVector3D minimum{1.0F, 1.0F, 1.0F};
    QVector3D maximum{-1.0F, -1.0F, -1.0F};

    [[nodiscard]] bool Empty() const { return minimum.x() > maximum.x(); }
    [[nodiscard]] QVector3D Centre() const { return (minimum + maximum) / 2.0F; }
    /// Of the ball around the box; 0 for an empty box.
    [[nodiscard]] float Radius() const;
    void Include(const QVector3D& point);
    void Include(const Bounds& other);
    [[nodiscard]] std::array<QVector3D, 8> Corners() const;
};

/// Triangles with counter-clockwise fronts. Never changed once made, so that every thread may read
/// it and its copy on the graphics device stays valid.
struct Mesh {
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;  ///< three a triangle, each below vertices.size()
    Bounds bounds;
    std::uint64_t id = 0;  ///< never used twice in a process
};

/// Gives the mesh its bounds and id. Indices that come in an incomplete triangle, or lie outside
/// the vertices, are left out together with their triangle.
[[nodiscard]] std::shared_ptr<const Mesh> MakeMesh(std::vector<Vertex> vertices,
                                                   std::vector<std::uint32_t> indices);

}  // namespace studio
