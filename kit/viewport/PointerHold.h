#pragma once

#include "Camera.h"
#include "Navigation.h"

namespace studio {

class ViewTool;

/// A button that is held down in a view, and what that does.
struct PointerHold {
    Qt::MouseButton button = Qt::NoButton;  ///< none: nothing is held
    ViewAction action = ViewAction::None;
    ViewTool* tool = nullptr;  ///< that has taken it
    QPointF pressed;
    QPointF last;
    QVector3D held;          ///< of the world, where it was pressed
    Camera before;           ///< comes back when it is cancelled
    bool isDragged = false;  ///< further than a hand is never quite still

    [[nodiscard]] bool MovesCamera() const
    {
        return isDragged && action != ViewAction::None && action != ViewAction::Box;
    }
    [[nodiscard]] bool DrawsBox() const { return isDragged && action == ViewAction::Box; }
    [[nodiscard]] QRectF Box() const { return QRectF(pressed, last).normalized(); }
    [[nodiscard]] Qt::CursorShape Cursor() const;
    /// What a move by so many pixels does, in a view of this size.
    [[nodiscard]] Camera Moved(const Camera& camera, QPointF pixels, QSizeF size,
                               float homeDistance) const;
};

}  // namespace studio
