#pragma once

class QKeyEvent;
class QMouseEvent;
class QPainter;

namespace studio {

/// What works in a view with the pointer: handles to drag, a brush. Of the tools of a view
/// (`ViewportWidget::AddTool`) the newest is asked first; what none takes selects shapes or moves
/// the view. Positions are the widget's (see Camera::RayThrough).
class ViewTool {
public:
    virtual ~ViewTool() = default;

    /// The left button, unless the preset moves the view with it by a key. True takes the drag:
    /// moves and the release come here too, and nothing else happens.
    virtual bool MousePress(const QMouseEvent& /*event*/) { return false; }
    /// Of a drag that was taken; without a button, of the pointer over the view: true keeps it from
    /// older tools.
    virtual bool MouseMove(const QMouseEvent& /*event*/) { return false; }
    virtual void MouseRelease(const QMouseEvent& /*event*/) {}
    /// A drag that was taken ends without a release: Esc, or the view is hidden.
    virtual void MouseCancel() {}
    /// The pointer leaves the view.
    virtual void MouseLeave() {}
    /// While the view has the focus.
    virtual bool KeyPress(const QKeyEvent& /*event*/) { return false; }
    /// Over the picture, in the widget's coordinates.
    virtual void Paint(QPainter& /*painter*/) {}
};

}  // namespace studio
