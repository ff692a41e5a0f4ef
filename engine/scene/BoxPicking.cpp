#include "BoxPicking.h"

#include <algorithm>
#include <array>

namespace studio {
namespace {

/// In the box are the points whose x and y are within w, before the eye those whose w is above 0.
struct BoxPoint {
    float x = 0.0F;
    float y = 0.0F;
    float w = 0.0F;
};

constexpr std::size_t kSides = 5;

/// At least 0 on the inner side of one of the box's four sides or of the eye.
float Inwards(const BoxPoint& point, std::size_t side)
{
    switch (side) {
    case 0:
        return point.w - point.x;
    case 1:
        return point.w + point.x;
    case 2:
        return point.w - point.y;
    case 3:
        return point.w + point.y;
    default:
        return point.w;
    }
}

bool IsInside(const BoxPoint& point)
{
    return std::abs(point.x) <= point.w && std::abs(point.y) <= point.w && point.w > 0.0F;
}

BoxPoint Between(const BoxPoint& one, const BoxPoint& other, float share)
{
    return {one.x + share * (other.x - one.x), one.y + share * (other.y - one.y),
            one.w + share * (other.w - one.w)};
}

QMatrix4x4 BoxFromWorld(const PickBox& pick)
{
    const QSizeF half(std::max(pick.box.width(), 1.0) / pick.view.width(),
                      std::max(pick.box.height(), 1.0) / pick.view.height());
    const QPointF middle = pick.box.center();
    QMatrix4x4 boxFromClip;
    boxFromClip.scale(static_cast<float>(1.0 / half.width()),
                      static_cast<float>(1.0 / half.height()));
    boxFromClip.translate(static_cast<float>(1.0 - 2.0 * middle.x() / pick.view.width()),
                          static_cast<float>(2.0 * middle.y() / pick.view.height() - 1.0));
    return boxFromClip * pick.camera.Projection(pick.view, {}) * pick.camera.View();
}

/// A shape, seen through the box.
class BoxedShape {
public:
    BoxedShape(const StudioShape& shape, const QMatrix4x4& boxFromWorld)
        : m_mesh(*shape.SharedMesh()), m_boxFromMesh(boxFromWorld * shape.WorldFromMesh()),
          m_isDoubleSided(shape.Material().DoubleSided),
          m_isMirrored(shape.WorldFromMesh().determinant() < 0.0)
    {
    }

    [[nodiscard]] bool Meets(BoxRule rule) const
    {
        std::array<BoxPoint, 8> corners;
        std::ranges::transform(m_mesh.bounds.Corners(), corners.begin(),
                               [this](const QVector3D& corner) { return At(corner); });
        if (std::ranges::all_of(corners, IsInside)) {
            return true;
        }
        for (std::size_t side = 0; side < kSides; ++side) {
            const auto isOutside = [side](const BoxPoint& point) {
                return Inwards(point, side) < 0.0F;
            };
            if (std::ranges::all_of(corners, isOutside)) {
                return false;
            }
        }
        return rule == BoxRule::Inside ? AllIsInside() : AnyTriangleTouches();
    }

private:
    [[nodiscard]] BoxPoint At(const QVector3D& point) const
    {
        const QVector4D mapped = m_boxFromMesh * QVector4D(point, 1.0F);
        return {mapped.x(), mapped.y(), mapped.w()};
    }

    [[nodiscard]] std::vector<BoxPoint> Points() const
    {
        std::vector<BoxPoint> points(m_mesh.vertices.size());
        std::ranges::transform(m_mesh.vertices, points.begin(), [this](const Vertex& vertex) {
            return At({vertex.position[0], vertex.position[1], vertex.position[2]});
        });
        return points;
    }

    [[nodiscard]] bool AllIsInside() const
    {
        const std::vector<BoxPoint> points = Points();
        return std::ranges::all_of(
            m_mesh.indices, [&points](std::uint32_t index) { return IsInside(points[index]); });
    }

    [[nodiscard]] bool AnyTriangleTouches() const
    {
        const std::vector<BoxPoint> points = Points();
        const auto& indices = m_mesh.indices;
        for (std::size_t corner = 0; corner + 2 < indices.size(); corner += 3) {
            const std::array triangle{points[indices[corner]], points[indices[corner + 1]],
                                      points[indices[corner + 2]]};
            if (IsSeen(triangle) && Touches(triangle)) {
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] bool IsSeen(const std::array<BoxPoint, 3>& triangle) const
    {
        const auto& [a, b, c] = triangle;
        const float area = a.x * (b.y * c.w - b.w * c.y) - a.y * (b.x * c.w - b.w * c.x) +
                           a.w * (b.x * c.y - b.y * c.x);
        return m_isDoubleSided || (m_isMirrored ? area < 0.0F : area > 0.0F);
    }

    /// Sutherland and Hodgman: whether anything is left when all beyond the sides is cut off.
    [[nodiscard]] static bool Touches(const std::array<BoxPoint, 3>& triangle)
    {
        std::array<BoxPoint, 3 + kSides> polygon{triangle[0], triangle[1], triangle[2]};
        std::size_t count = triangle.size();
        for (std::size_t side = 0; side < kSides && count > 0; ++side) {
            std::array<BoxPoint, 3 + kSides> cut{};
            std::size_t kept = 0;
            for (std::size_t i = 0; i < count; ++i) {
                const BoxPoint& one = polygon.at(i);
                const BoxPoint& next = polygon.at((i + 1) % count);
                const float here = Inwards(one, side);
                const float there = Inwards(next, side);
                if (here >= 0.0F) {
                    cut.at(kept++) = one;
                }
                if ((here >= 0.0F) != (there >= 0.0F) && kept < cut.size()) {
                    cut.at(kept++) = Between(one, next, here / (here - there));
                }
            }
            polygon = cut;
            count = kept;
        }
        return count > 0;
    }

    const Mesh& m_mesh;
    QMatrix4x4 m_boxFromMesh;
    bool m_isDoubleSided;
    bool m_isMirrored;
};

}  // namespace

std::vector<std::shared_ptr<StudioShape>>
PickInBox(const PickBox& pick, const std::vector<std::shared_ptr<StudioShape>>& shapes)
{
    const QMatrix4x4 boxFromWorld = BoxFromWorld(pick);
    std::vector<std::shared_ptr<StudioShape>> picked;
    std::ranges::copy_if(shapes, std::back_inserter(picked), [&](const auto& shape) {
        return shape->IsPickable() && shape->SharedMesh() != nullptr &&
               !shape->SharedMesh()->indices.empty() &&
               BoxedShape(*shape, boxFromWorld).Meets(pick.rule);
    });
    return picked;
}

}  // namespace studio
