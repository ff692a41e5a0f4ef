#pragma once

#include "Camera.h"
#include "WrapCoordinates.h"
#include <CorvexMaterial/MaterialRecord.h>

#include <QPointF>

#include <optional>
#include <vector>

namespace studio {

struct FrameItem;

/// A view of the scene: between points of the world and pixels of a widget.
class ViewOfScene {
public:
    ViewOfScene(const Camera& camera, QSizeF size);

    /// Nothing for a point behind the eye.
    [[nodiscard]] std::optional<QPointF> PixelOf(const QVector3D& world) const;
    [[nodiscard]] Ray RayThrough(QPointF pixel) const { return m_camera.RayThrough(pixel, m_size); }
    [[nodiscard]] float UnitsPerPixelAt(const QVector3D& world) const;
    [[nodiscard]] QVector3D TowardsEye(const QVector3D& world) const;

private:
    Camera m_camera;
    QSizeF m_size;
    QMatrix4x4 m_clipFromWorld;
};

/// What the hand can hold of a projection. The numbers of arrows and rings are axes.
struct ProjectionHandle {
    enum class Kind { Arrow, Ring, Width, Height, Size, Rotation };

    Kind kind{};
    int axis = 0;

    bool operator==(const ProjectionHandle&) const = default;
};

/// A flat card before the wrapped surface on which the hand scales and turns one tile: exact for a
/// flat wrap, touching the middle of a round one.
struct TileCard {
    QVector3D centre;  ///< world
    QVector3D across;  ///< of the turned tile, a scene unit long
    QVector3D down;
    QVector2D tile;  ///< width and height in scene units
    QVector2D half;  ///< of the card, which is neither lost nor out of sight
    int facing = 2;  ///< the axis along which its side faces
    float sign = 1.0F;
};

/// Where the handles of a shape's projection are.
struct ProjectionHandles {
    ProjectionHandles(const FrameItem& item, const ViewOfScene& view);

    [[nodiscard]] QVector3D PointOf(const QVector3D& space) const
    {
        return stand.worldFromSpace.map(space);
    }
    /// Of an arrow: those of the space. Of a ring: each turns by one number of the material.
    [[nodiscard]] QVector3D ArrowAxis(int axis) const;
    [[nodiscard]] QVector3D RingAxis(int axis) const;
    /// World, in a circle of `kRingPixels` around the middle.
    [[nodiscard]] std::vector<QVector3D> Ring(int axis) const;
    [[nodiscard]] QVector3D ArrowTip(int axis) const;
    /// Or at the eye: then the arrow is neither drawn nor held.
    [[nodiscard]] bool PointsAside(int axis, const ViewOfScene& view) const;
    /// Of the card's handles.
    [[nodiscard]] QVector3D PlaceOf(ProjectionHandle handle) const;
    /// Lines that show the shape of the projection.
    [[nodiscard]] std::vector<std::vector<QVector3D>> Outline() const;
    /// How far the projection has to move in its space for the card's tile to stay where it is.
    [[nodiscard]] QVector3D ShiftOfTile(const WrapStand& changed) const;
    [[nodiscard]] std::optional<ProjectionHandle> At(QPointF pixel, const ViewOfScene& view) const;

    static constexpr float kRingPixels = 92.0F;
    static constexpr float kArrowPixels = 70.0F;

    CorvexDB::udtMaterial material;
    WrapStand stand;
    QVector3D middle;     ///< world
    float unitsPerPixel;  ///< there
    TileCard card;
};

}  // namespace studio
