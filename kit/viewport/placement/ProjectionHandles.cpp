#include "ProjectionHandles.h"

#include "Frame.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <tuple>

namespace studio {
namespace {

using Kind = ProjectionHandle::Kind;

constexpr int kRoundSteps = 64;
constexpr float kLeastCardPixels = 22.0F;
/// Of the longest side of the box: a card beyond that would be out of sight.
constexpr float kLargestCard = 0.45F;
constexpr float kRotationPixels = 26.0F;  ///< above the card
constexpr float kPointReach = 10.0F;
constexpr float kLineReach = 7.0F;
/// Arrows that point at the eye are neither drawn nor held.
constexpr float kAtEye = 0.97F;

QVector3D AxisVector(int axis)
{
    QVector3D vector;
    vector[axis] = 1.0F;
    return vector;
}

/// The sides of a flat wrap as `CornerPlaces` and the shader know them.
struct Side {
    int across;
    int down;
    QVector2D turn;

    Side(int facing, float sign)
        : across(facing == 0 ? 2 : 0), down(facing == 1 ? 2 : 1),
          turn(facing == 0   ? QVector2D(-sign, -1.0F)
               : facing == 1 ? QVector2D(1.0F, sign)
                             : QVector2D(sign, -1.0F))
    {
    }

    [[nodiscard]] QVector2D Unrolled(const QVector3D& v) const
    {
        return turn * QVector2D(v[across], v[down]);
    }
    [[nodiscard]] QVector3D Rolled(const QVector2D& v) const
    {
        QVector3D vector;
        vector[across] = turn.x() * v.x();
        vector[down] = turn.y() * v.y();
        return vector;
    }
};

QVector2D WayOf(const TilePlane& tiles, const QVector2D& place)
{
    const float area = tiles.across.x() * tiles.down.y() - tiles.across.y() * tiles.down.x();
    return QVector2D(tiles.down.y() * place.x() - tiles.down.x() * place.y(),
                     tiles.across.x() * place.y() - tiles.across.y() * place.x()) /
           area;
}

QVector2D MiddleOfTile(const QVector2D& place)
{
    return {std::floor(place.x()) + 0.5F, std::floor(place.y()) + 0.5F};
}

float Clamped(float half, float least, float most)
{
    return std::max(least, std::min(half, most));
}

float DistanceToLine(QPointF p, QPointF a, QPointF b)
{
    const QVector2D way(b - a);
    const QVector2D to(p - a);
    const float length = way.lengthSquared();
    const float share =
        length > 0.0F ? std::clamp(QVector2D::dotProduct(to, way) / length, 0.0F, 1.0F) : 0.0F;
    return (to - share * way).length();
}

}  // namespace

ViewOfScene::ViewOfScene(const Camera& camera, QSizeF size)
    : m_camera(camera), m_size(size), m_clipFromWorld(camera.Projection(size, {}) * camera.View())
{
}

std::optional<QPointF> ViewOfScene::PixelOf(const QVector3D& world) const
{
    const QVector4D clip = m_clipFromWorld * QVector4D(world, 1.0F);
    if (!(clip.w() > 1.0e-6F)) {
        return std::nullopt;
    }
    const QVector3D point = clip.toVector3DAffine();
    return QPointF((1.0 + double{point.x()}) / 2.0 * m_size.width(),
                   (1.0 - double{point.y()}) / 2.0 * m_size.height());
}

float ViewOfScene::UnitsPerPixelAt(const QVector3D& world) const
{
    const auto here = PixelOf(world);
    const float step = m_camera.UnitsPerPixel(m_size) * 16.0F;
    const auto beside = PixelOf(world + step * m_camera.Right());
    if (!here || !beside) {
        return m_camera.UnitsPerPixel(m_size);
    }
    const float pixels = QVector2D(*beside - *here).length();
    return pixels > 0.0F ? step / pixels : m_camera.UnitsPerPixel(m_size);
}

QVector3D ViewOfScene::TowardsEye(const QVector3D& world) const
{
    const auto pixel = PixelOf(world);
    return pixel ? -RayThrough(*pixel).direction : QVector3D(0.0F, 0.0F, 1.0F);
}

ProjectionHandles::ProjectionHandles(const FrameItem& item, const ViewOfScene& view)
    : material(item.material ? *item.material : CorvexDB::udtMaterial()),
      stand(WrapStandOf(item, material)), middle(PointOf(stand.middle)),
      unitsPerPixel(view.UnitsPerPixelAt(middle))
{
    const auto inWorld = [&](const QVector3D& projection) {
        return stand.worldFromSpace.mapVector(stand.turn * projection);
    };
    const bool isFlat = material.Wrap == CorvexDB::WrapType::Flat;
    if (isFlat) {
        const QVector3D eye = view.TowardsEye(middle);
        float most = -1.0F;
        for (int axis = 0; axis < 3; ++axis) {
            const float share = QVector3D::dotProduct(inWorld(AxisVector(axis)), eye);
            if (std::abs(share) > most) {
                std::tie(most, card.facing, card.sign) =
                    std::tuple(std::abs(share), axis, share < 0.0F ? -1.0F : 1.0F);
            }
        }
    }
    const Side side(card.facing, card.sign);
    const auto facing = static_cast<std::size_t>(card.facing);
    const TilePlane& tiles = stand.tiles[facing];
    const QVector2D length = stand.lengths[facing];
    QVector3D place = card.sign * stand.size[card.facing] / 2.0F * AxisVector(card.facing);
    if (isFlat) {
        const QVector3D zero = stand.turn.conjugated() * (stand.middle - stand.from);
        const QVector2D unrolled = side.Unrolled(zero) / length;
        const QVector2D found = tiles.PlaceOf(unrolled);
        place += side.Rolled(WayOf(tiles, MiddleOfTile(found) - found) * length);
    }
    card.centre = PointOf(stand.middle + stand.turn * place);
    const QVector2D across = WayOf(tiles, {1.0F, 0.0F}) * length;
    const QVector2D down = WayOf(tiles, {0.0F, 1.0F}) * length;
    card.tile = {across.length(), down.length()};
    card.across = inWorld(side.Rolled(across.normalized()));
    card.down = inWorld(side.Rolled(down.normalized()));
    const float most = kLargestCard * std::max({stand.size.x(), stand.size.y(), stand.size.z()});
    const float least = kLeastCardPixels * unitsPerPixel;
    card.half = {Clamped(card.tile.x() / 2.0F, least, most),
                 Clamped(card.tile.y() / 2.0F, least, most)};
}

QVector3D ProjectionHandles::ArrowAxis(int axis) const
{
    return stand.worldFromSpace.mapVector(AxisVector(axis)).normalized();
}

// About y, then x, then z, each as the ones before have turned it.
QVector3D ProjectionHandles::RingAxis(int axis) const
{
    const CorvexDB::TextureProjection& projection = material.Projection;
    QQuaternion before;
    if (axis == 0) {
        before = QQuaternion::fromAxisAndAngle(0.0F, 1.0F, 0.0F, projection.turnY);
    } else if (axis == 2) {
        before = stand.turn;
    }
    return stand.worldFromSpace.mapVector(before * AxisVector(axis)).normalized();
}

std::vector<QVector3D> ProjectionHandles::Ring(int axis) const
{
    const QVector3D normal = RingAxis(axis);
    const QVector3D beside = std::abs(normal.x()) < 0.9F ? AxisVector(0) : AxisVector(1);
    const QVector3D first = QVector3D::crossProduct(normal, beside).normalized();
    const QVector3D second = QVector3D::crossProduct(normal, first);
    std::vector<QVector3D> points;
    for (int i = 0; i <= kRoundSteps; ++i) {
        const float angle = 2.0F * std::numbers::pi_v<float> * static_cast<float>(i) / kRoundSteps;
        points.push_back(middle + kRingPixels * unitsPerPixel *
                                      (std::cos(angle) * first + std::sin(angle) * second));
    }
    return points;
}

QVector3D ProjectionHandles::ArrowTip(int axis) const
{
    return middle + kArrowPixels * unitsPerPixel * ArrowAxis(axis);
}

QVector3D ProjectionHandles::PlaceOf(ProjectionHandle handle) const
{
    const QVector3D across = card.half.x() * card.across;
    const QVector3D down = card.half.y() * card.down;
    switch (handle.kind) {
    case Kind::Width:
        return card.centre + across;
    case Kind::Height:
        return card.centre + down;
    case Kind::Size:
        return card.centre + across + down;
    case Kind::Rotation:
        return card.centre - down - kRotationPixels * unitsPerPixel * card.down;
    default:
        return handle.kind == Kind::Arrow ? ArrowTip(handle.axis) : middle;
    }
}

std::vector<std::vector<QVector3D>> ProjectionHandles::Outline() const
{
    std::vector<std::vector<QVector3D>> lines;
    const auto at = [&](float x, float y, float z) {
        return PointOf(stand.middle + stand.turn * (QVector3D(x, y, z) * stand.size / 2.0F));
    };
    const auto addRound = [&](const auto& pointAt) {
        auto& line = lines.emplace_back();
        for (int i = 0; i <= kRoundSteps; ++i) {
            const float angle =
                2.0F * std::numbers::pi_v<float> * static_cast<float>(i) / kRoundSteps;
            line.push_back(pointAt(std::cos(angle), std::sin(angle)));
        }
    };
    if (material.Wrap == CorvexDB::WrapType::Flat) {
        for (const float end : {-1.0F, 1.0F}) {
            lines.push_back(
                {at(-1, -1, end), at(1, -1, end), at(1, 1, end), at(-1, 1, end), at(-1, -1, end)});
        }
        for (const auto& [x, y] : {std::pair(-1, -1), {1, -1}, {1, 1}, {-1, 1}}) {
            const auto fx = static_cast<float>(x);
            const auto fy = static_cast<float>(y);
            lines.push_back({at(fx, fy, -1), at(fx, fy, 1)});
        }
    } else if (material.Wrap == CorvexDB::WrapType::Cylindrical) {
        for (const float y : {-1.0F, 1.0F}) {
            addRound([&](float c, float s) { return at(c, y, s); });
        }
        for (const auto& [x, z] : {std::pair(-1, 0), {1, 0}, {0, 1}, {0, -1}}) {
            const auto fx = static_cast<float>(x);
            const auto fz = static_cast<float>(z);
            lines.push_back({at(fx, -1, fz), at(fx, 1, fz)});
        }
    } else {
        addRound([&](float c, float s) { return at(c, 0, s); });
        addRound([&](float c, float s) { return at(c, s, 0); });
        addRound([&](float c, float s) { return at(0, c, s); });
    }
    return lines;
}

QVector3D ProjectionHandles::ShiftOfTile(const WrapStand& changed) const
{
    const Side side(card.facing, card.sign);
    const auto facing = static_cast<std::size_t>(card.facing);
    const TilePlane& tiles = changed.tiles[facing];
    const QVector2D length = changed.lengths[facing];
    const QVector3D centre = changed.worldFromSpace.inverted().map(card.centre);
    const QVector2D place =
        tiles.PlaceOf(side.Unrolled(changed.turn.conjugated() * (centre - changed.from)) / length);
    return changed.turn * side.Rolled(WayOf(tiles, place - MiddleOfTile(place)) * length);
}

std::optional<ProjectionHandle> ProjectionHandles::At(QPointF pixel, const ViewOfScene& view) const
{
    std::optional<ProjectionHandle> found;
    float nearest = 1.0F;  // of the reach
    const auto offer = [&](ProjectionHandle handle, float distance, float reach) {
        if (distance / reach < nearest) {
            nearest = distance / reach;
            found = handle;
        }
    };
    for (const Kind kind : {Kind::Width, Kind::Height, Kind::Size, Kind::Rotation}) {
        if (const auto at = view.PixelOf(PlaceOf({kind, 0}))) {
            offer({kind, 0}, QVector2D(*at - pixel).length(), kPointReach);
        }
    }
    if (found) {
        return found;  // small, and drawn above the others
    }
    for (int axis = 0; axis < 3; ++axis) {
        const auto from = view.PixelOf(middle + 0.2F * (ArrowTip(axis) - middle));
        const auto to = view.PixelOf(ArrowTip(axis));
        if (from && to && PointsAside(axis, view)) {
            offer({Kind::Arrow, axis}, DistanceToLine(pixel, *from, *to), kLineReach);
        }
        std::optional<QPointF> before;
        for (const QVector3D& point : Ring(axis)) {
            const auto at = view.PixelOf(point);
            if (before && at) {
                offer({Kind::Ring, axis}, DistanceToLine(pixel, *before, *at), kLineReach);
            }
            before = at;
        }
    }
    return found;
}

bool ProjectionHandles::PointsAside(int axis, const ViewOfScene& view) const
{
    return std::abs(QVector3D::dotProduct(ArrowAxis(axis), view.TowardsEye(middle))) < kAtEye;
}

}  // namespace studio
