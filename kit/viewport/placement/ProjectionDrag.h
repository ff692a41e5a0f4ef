#pragma once

#include "Frame.h"
#include "ProjectionHandles.h"

namespace studio {

/// A hand that holds one of the handles. Every place of it gives a material of its own, from what
/// was at the start.
class ProjectionDrag {
public:
    enum class Steps { Fine, Snapped };

    ProjectionDrag(const FrameItem& item, ProjectionHandle handle, const ViewOfScene& view,
                   QPointF pressed);

    [[nodiscard]] ProjectionHandle Handle() const { return m_handle; }
    /// Snapped: 15 degrees, and tenths of what the shape is long in powers of ten.
    [[nodiscard]] CorvexDB::udtMaterial MovedTo(QPointF pixel, Steps steps) const;

private:
    /// Along the arrow, scene units.
    [[nodiscard]] float Along(QPointF pixel) const;
    [[nodiscard]] float Degrees(QPointF pixel) const;
    /// On the card, from its centre; nothing where it is seen from its edge.
    [[nodiscard]] std::optional<QVector2D> OnCard(QPointF pixel) const;
    [[nodiscard]] float Length(float length, Steps steps) const;
    void Turn(CorvexDB::udtMaterial& material, QPointF pixel, Steps steps) const;
    void Resize(CorvexDB::udtMaterial& material, const QVector2D& at, Steps steps) const;
    void Rotate(CorvexDB::udtMaterial& material, const QVector2D& at, Steps steps) const;
    /// Moves the projection so that the card's tile stays where it is.
    void KeepTile(CorvexDB::udtMaterial& material) const;
    void MoveBy(CorvexDB::udtMaterial& material, const QVector3D& offset) const;

    FrameItem m_item;
    ProjectionHandle m_handle;
    ViewOfScene m_view;
    ProjectionHandles m_start;
    QPointF m_pressed;
    std::optional<QVector2D> m_onCard;
    double m_grid;  ///< scene units
};

}  // namespace studio
