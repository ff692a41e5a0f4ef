#pragma once

#include "LibraryDrag.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class QDropEvent;

namespace studio {

class StudioShape;
class ViewportWidget;

/// Lets materials and images be dropped on the shapes of a viewport, an image as their texture.
class ViewportDrops : public QObject {
    Q_OBJECT

public:
    using ShapePointer = std::shared_ptr<StudioShape>;
    using Pick = std::function<ShapePointer(QPoint)>;

    /// Lives as long as the viewport.
    ViewportDrops(ViewportWidget& viewport, Pick pick);

Q_SIGNALS:
    /// The shape that a drop would go to now and what it would have then; null when the drag left
    /// it, was given up, or has ended.
    void Over(const studio::ViewportDrops::ShapePointer& shape,
              const CorvexDB::udtMaterial& material);
    /// After the drop is over, so that whoever answers may show a message, and before the shape is
    /// no more the one that the drag is over.
    void Dropped(const studio::ViewportDrops::ShapePointer& shape,
                 const studio::DroppedMaterial& material);
    /// For the status line: what a drop here would do.
    void Hint(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Enter(QDropEvent& event);
    void Move(QDropEvent& event);
    void Leave();
    void Drop(QDropEvent& event);
    void GoOver(const ShapePointer& shape);
    [[nodiscard]] DroppedMaterial DraggedOnto(const StudioShape& shape) const;

    ViewportWidget& m_viewport;
    Pick m_pick;
    QString m_dragged;  ///< name of what is over the viewport; empty when nothing is
    std::optional<DroppedMaterial> m_material;
    QString m_texture;       ///< its file, where it is no material
    bool m_isThere = false;  ///< a texture that is no file is not taken
    ShapePointer m_over;
};

}  // namespace studio
