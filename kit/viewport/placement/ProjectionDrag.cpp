#include "ProjectionDrag.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>

namespace studio {
namespace {

using Kind = ProjectionHandle::Kind;
using CorvexDB::TextureProjection;
using CorvexDB::udtMaterial;

constexpr double kSnapDegrees = 15.0;
constexpr double kFineDegrees = 0.1;
constexpr double kFineOfGrid = 0.01;
/// Between a ring or a card and the line of sight: less is seen from the edge.
constexpr float kFromEdge = 0.15F;

constexpr std::array kOffsets{&TextureProjection::x, &TextureProjection::y, &TextureProjection::z};
constexpr std::array kTurns{&TextureProjection::turnX, &TextureProjection::turnY,
                            &TextureProjection::turnZ};

float InSteps(float value, double step)
{
    return static_cast<float>(std::round(double{value} / step) * step);
}

/// -180 to 180.
float Shortest(float degrees)
{
    return degrees - 360.0F * std::round(degrees / 360.0F);
}

float TurnedTo(float degrees, ProjectionDrag::Steps steps)
{
    return InSteps(Shortest(degrees),
                   steps == ProjectionDrag::Steps::Snapped ? kSnapDegrees : kFineDegrees);
}

std::optional<QVector3D> Crossing(const Ray& ray, const QVector3D& point, const QVector3D& normal)
{
    const float facing = QVector3D::dotProduct(ray.direction, normal);
    if (std::abs(facing) < kFromEdge) {
        return std::nullopt;
    }
    return ray.origin + QVector3D::dotProduct(point - ray.origin, normal) / facing * ray.direction;
}

/// In powers of ten, a tenth of what the shape is long.
double GridOf(const QVector3D& size)
{
    const double longest = std::max({size.x(), size.y(), size.z(), 1.0e-6F});
    return std::pow(10.0, std::floor(std::log10(longest)) - 1.0);
}

}  // namespace

ProjectionDrag::ProjectionDrag(const FrameItem& item, ProjectionHandle handle,
                               const ViewOfScene& view, QPointF pressed)
    : m_item(item), m_handle(handle), m_view(view), m_start(item, view), m_pressed(pressed),
      m_onCard(OnCard(pressed)), m_grid(GridOf(m_start.stand.size))
{
}

udtMaterial ProjectionDrag::MovedTo(QPointF pixel, Steps steps) const
{
    udtMaterial material = m_start.material;
    const auto axis = static_cast<std::size_t>(m_handle.axis);
    if (m_handle.kind == Kind::Arrow) {
        float& offset = material.Projection.*kOffsets[axis];
        offset = Length(offset + Along(pixel) - Along(m_pressed), steps);
    } else if (m_handle.kind == Kind::Ring) {
        Turn(material, pixel, steps);
    } else if (const auto at = OnCard(pixel); at && m_onCard) {
        m_handle.kind == Kind::Rotation ? Rotate(material, *at, steps)
                                        : Resize(material, *at, steps);
        KeepTile(material);
    }
    return material;
}

float ProjectionDrag::Along(QPointF pixel) const
{
    const Ray ray = m_view.RayThrough(pixel);
    const QVector3D axis = m_start.ArrowAxis(m_handle.axis);
    const QVector3D apart = m_start.middle - ray.origin;
    const float aligned = QVector3D::dotProduct(axis, ray.direction);
    // The point of the axis that is nearest to the line of sight.
    return (aligned * QVector3D::dotProduct(apart, ray.direction) -
            QVector3D::dotProduct(apart, axis)) /
           std::max(1.0F - aligned * aligned, 1.0e-3F);
}

float ProjectionDrag::Degrees(QPointF pixel) const
{
    const QVector3D normal = m_start.RingAxis(m_handle.axis);
    const auto began = Crossing(m_view.RayThrough(m_pressed), m_start.middle, normal);
    const auto ends = Crossing(m_view.RayThrough(pixel), m_start.middle, normal);
    if (began && ends) {
        const QVector3D first = *began - m_start.middle;
        const QVector3D last = *ends - m_start.middle;
        return qRadiansToDegrees(
            std::atan2(QVector3D::dotProduct(normal, QVector3D::crossProduct(first, last)),
                       QVector3D::dotProduct(first, last)));
    }
    // From its edge a ring rolls along with the hand.
    const QVector3D near =
        m_view.TowardsEye(m_start.middle) * m_start.unitsPerPixel * ProjectionHandles::kRingPixels;
    const auto from = m_view.PixelOf(m_start.middle + near);
    const auto to =
        m_view.PixelOf(m_start.middle + near + QVector3D::crossProduct(normal, near) / 16.0F);
    if (!from || !to) {
        return 0.0F;
    }
    const QVector2D way = QVector2D(*to - *from).normalized();
    return qRadiansToDegrees(QVector2D::dotProduct(QVector2D(pixel - m_pressed), way) /
                             ProjectionHandles::kRingPixels);
}

std::optional<QVector2D> ProjectionDrag::OnCard(QPointF pixel) const
{
    const TileCard& card = m_start.card;
    const auto at = Crossing(m_view.RayThrough(pixel), card.centre,
                             QVector3D::crossProduct(card.across, card.down).normalized());
    if (!at) {
        return std::nullopt;
    }
    return QVector2D(QVector3D::dotProduct(*at - card.centre, card.across),
                     QVector3D::dotProduct(*at - card.centre, card.down));
}

float ProjectionDrag::Length(float length, Steps steps) const
{
    return InSteps(length, steps == Steps::Snapped ? m_grid : m_grid * kFineOfGrid);
}

void ProjectionDrag::Turn(udtMaterial& material, QPointF pixel, Steps steps) const
{
    float& turn = material.Projection.*kTurns[static_cast<std::size_t>(m_handle.axis)];
    const bool isMirrored = m_start.stand.worldFromSpace.determinant() < 0.0;
    turn = TurnedTo(turn + (isMirrored ? -1.0F : 1.0F) * Degrees(pixel), steps);
    // About the middle also where the projection's zero is elsewhere.
    const QVector3D away = m_start.stand.middle - m_start.stand.from;
    const QQuaternion now = WrapStandOf(m_item, material).turn;
    MoveBy(material, away - now * (m_start.stand.turn.conjugated() * away));
}

void ProjectionDrag::Resize(udtMaterial& material, const QVector2D& at, Steps steps) const
{
    const QVector2D began = *m_onCard;
    QVector2D scale(1.0F, 1.0F);
    if (m_handle.kind == Kind::Width) {
        scale.setX(at.x() / began.x());
    } else if (m_handle.kind == Kind::Height) {
        scale.setY(at.y() / began.y());
    } else {
        const float both = QVector2D::dotProduct(at, began) / began.lengthSquared();
        scale = {both, both};
    }
    const auto sized = [&](float tile, float by) {
        const auto least =
            static_cast<float>(steps == Steps::Snapped ? m_grid : m_grid * kFineOfGrid);
        return by == 1.0F ? tile : std::max(least, Length(tile * by, steps));
    };
    material.TextureWidth = sized(m_start.card.tile.x(), scale.x());
    material.TextureHeight = sized(m_start.card.tile.y(), scale.y());
}

void ProjectionDrag::Rotate(udtMaterial& material, const QVector2D& at, Steps steps) const
{
    const auto clockwise = [](const QVector2D& v) { return std::atan2(v.y(), v.x()); };
    material.TextureRotation = TurnedTo(
        material.TextureRotation - qRadiansToDegrees(clockwise(at) - clockwise(*m_onCard)), steps);
}

void ProjectionDrag::KeepTile(udtMaterial& material) const
{
    if (material.Wrap != CorvexDB::WrapType::Flat) {
        return;  // a round wrap rests around its middle
    }
    MoveBy(material, m_start.ShiftOfTile(WrapStandOf(m_item, material)));
}

void ProjectionDrag::MoveBy(udtMaterial& material, const QVector3D& offset) const
{
    if (offset.length() < m_grid * kFineOfGrid) {
        return;
    }
    for (int axis = 0; axis < 3; ++axis) {
        float& place = material.Projection.*kOffsets[static_cast<std::size_t>(axis)];
        place = InSteps(place + offset[axis], m_grid * kFineOfGrid);
    }
}

}  // namespace studio
