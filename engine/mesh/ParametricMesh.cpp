#include "ParametricMesh.h"

#include "UnitVector.h"

#include <QMatrix4x4>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace studio {

namespace {

constexpr float kFullTurn = 2.0F * std::numbers::pi_v<float>;
constexpr float kStep = 1.0e-3F;

struct Slopes {
    QVector3D alongU;
    QVector3D alongV;
};

Slopes SlopesAt(const Surface& surface, float u, float v)
{
    // A pole has no slope of its own; a little inside it there is one.
    const float inside = std::clamp(v, 2.0F * kStep, 1.0F - 2.0F * kStep);
    return {surface(u + kStep, inside) - surface(u - kStep, inside),
            surface(u, v == inside ? v + kStep : inside + kStep) -
                surface(u, v == inside ? v - kStep : inside - kStep)};
}

Vertex VertexOf(const QVector3D& position, const Slopes& slopes, QVector2D uv)
{
    const QVector3D along = UnitOr(slopes.alongU, {1.0F, 0.0F, 0.0F});
    const QVector3D normal =
        UnitOr(QVector3D::crossProduct(along, UnitOr(slopes.alongV, {})), {0.0F, 1.0F, 0.0F});
    Vertex vertex;
    vertex.position = {position.x(), position.y(), position.z()};
    vertex.normal = {normal.x(), normal.y(), normal.z()};
    vertex.uv = {uv.x(), uv.y()};
    return vertex;
}

void AddGridTriangles(Grid grid, std::uint32_t first, std::vector<std::uint32_t>& indices)
{
    const auto width = static_cast<std::uint32_t>(grid.columns + 1);
    for (std::uint32_t row = 0; row < static_cast<std::uint32_t>(grid.rows); ++row) {
        for (std::uint32_t column = 0; column + 1 < width; ++column) {
            const std::uint32_t corner = first + row * width + column;
            indices.insert(indices.end(), {corner, corner + 1, corner + width + 1, corner,
                                           corner + width + 1, corner + width});
        }
    }
}

// Catmull and Rom's curve: through every point, without a kink.
QVector2D PointOn(std::span<const QVector2D> points, float position)
{
    const auto last = static_cast<int>(points.size()) - 1;
    const float scaled = std::clamp(position, 0.0F, 1.0F) * static_cast<float>(last);
    const int segment = std::min(static_cast<int>(scaled), last - 1);
    const float t = scaled - static_cast<float>(segment);
    const auto at = [&](int index) {
        return points[static_cast<std::size_t>(std::clamp(index, 0, last))];
    };
    const QVector2D before = at(segment - 1);
    const QVector2D from = at(segment);
    const QVector2D to = at(segment + 1);
    const QVector2D after = at(segment + 2);
    return 0.5F * (2.0F * from + t * (to - before) +
                   t * t * (2.0F * before - 5.0F * from + 4.0F * to - after) +
                   t * t * t * (3.0F * from - before - 3.0F * to + after));
}

QVector3D KnotLine(const Knot& knot, float u)
{
    const float around = kFullTurn * u * static_cast<float>(knot.turns);
    const float across = kFullTurn * u * static_cast<float>(knot.coils);
    const float distance = knot.radius * (2.0F + std::cos(across)) / 3.0F;
    return {distance * std::cos(around), distance * std::sin(around),
            knot.radius * std::sin(across) / 3.0F};
}

QVector3D KnotSurface(const Knot& knot, float u, float v)
{
    const QVector3D line = KnotLine(knot, u);
    const QVector3D ahead = (KnotLine(knot, u + kStep) - KnotLine(knot, u - kStep)).normalized();
    // The line never passes through the origin, so that this frame never flips.
    const QVector3D side = QVector3D::crossProduct(ahead, line).normalized();
    const QVector3D out = QVector3D::crossProduct(side, ahead);
    const float angle = -kFullTurn * v;
    return line + knot.tube * (std::cos(angle) * out + std::sin(angle) * side);
}

// Dense where the cube bends, one field across its flat middle would do.
float CubeStop(int index, int fields, float flat)
{
    const int bend = fields / 2 - 1;
    if (index <= bend) {
        return -1.0F + (1.0F - flat) * static_cast<float>(index) / static_cast<float>(bend);
    }
    return index == fields / 2 ? 0.0F : -CubeStop(fields - index, fields, flat);
}

QVector3D Clamped(const QVector3D& point, float limit)
{
    return {std::clamp(point.x(), -limit, limit), std::clamp(point.y(), -limit, limit),
            std::clamp(point.z(), -limit, limit)};
}

}  // namespace

std::shared_ptr<const Mesh> ParametricMesh(const Surface& surface, Grid grid)
{
    std::vector<Vertex> vertices;
    for (int row = 0; row <= grid.rows; ++row) {
        for (int column = 0; column <= grid.columns; ++column) {
            const float u = static_cast<float>(column) / static_cast<float>(grid.columns);
            const float v = static_cast<float>(row) / static_cast<float>(grid.rows);
            vertices.push_back(VertexOf(surface(u, v), SlopesAt(surface, u, v), {u, v}));
        }
    }
    std::vector<std::uint32_t> indices;
    AddGridTriangles(grid, 0, indices);
    return MakeMesh(std::move(vertices), std::move(indices));
}

std::shared_ptr<const Mesh> SphereMesh(float radius)
{
    return ParametricMesh(
        [radius](float u, float v) {
            const float latitude = (v - 0.5F) * kFullTurn / 2.0F;
            // Half a turn on, so that the seam is at the back.
            const float longitude = kFullTurn * (u + 0.5F);
            return radius * QVector3D(std::cos(latitude) * std::sin(longitude), std::sin(latitude),
                                      std::cos(latitude) * std::cos(longitude));
        },
        {56, 32});
}

std::shared_ptr<const Mesh> LatheMesh(std::span<const QVector2D> profile, Grid grid)
{
    return ParametricMesh(
        [profile](float u, float v) {
            const QVector2D point = PointOn(profile, v);
            const float longitude = kFullTurn * (u + 0.5F);
            return QVector3D(point.x() * std::sin(longitude), point.y(),
                             point.x() * std::cos(longitude));
        },
        grid);
}

std::shared_ptr<const Mesh> KnotMesh(const Knot& knot)
{
    return ParametricMesh([&knot](float u, float v) { return KnotSurface(knot, u, v); }, {220, 24});
}

std::shared_ptr<const Mesh> RoundedCubeMesh(float halfSide, float rounding)
{
    constexpr Grid kGrid{18, 18};
    const float inner = halfSide - rounding;
    const std::array sides{QVector3D(0, 0, 0),   QVector3D(0, 90, 0), QVector3D(0, 180, 0),
                           QVector3D(0, 270, 0), QVector3D(90, 0, 0), QVector3D(-90, 0, 0)};
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    for (const QVector3D& turn : sides) {
        QMatrix4x4 side;
        side.rotate(turn.y(), 0, 1, 0);
        side.rotate(turn.x(), 1, 0, 0);
        AddGridTriangles(kGrid, static_cast<std::uint32_t>(vertices.size()), indices);
        for (int row = 0; row <= kGrid.rows; ++row) {
            for (int column = 0; column <= kGrid.columns; ++column) {
                const float x = CubeStop(column, kGrid.columns, inner / halfSide);
                const float y = CubeStop(row, kGrid.rows, inner / halfSide);
                const QVector3D onCube = side.map(halfSide * QVector3D(x, y, 1.0F));
                const QVector3D core = Clamped(onCube, inner);
                const QVector3D normal = (onCube - core).normalized();
                const QVector3D right = side.mapVector(QVector3D(1, 0, 0));
                const QVector3D up = QVector3D::crossProduct(normal, right);
                const Slopes slopes{QVector3D::crossProduct(up, normal), up};
                vertices.push_back(VertexOf(core + rounding * normal, slopes,
                                            {(x + 1.0F) / 2.0F, (y + 1.0F) / 2.0F}));
            }
        }
    }
    return MakeMesh(std::move(vertices), std::move(indices));
}

}  // namespace studio
