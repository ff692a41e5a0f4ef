// What pointer and keys do in a viewport.

#include "OrbitMotion.h"
#include "ViewKeys.h"
#include "ViewTool.h"
#include "ViewportWidget.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <utility>

namespace studio {
namespace {

constexpr float kWheelUnitsPerStep = 120.0F;

}  // namespace

std::optional<SurfacePoint> ViewportWidget::SurfaceAt(QPointF position) const
{
    return m_source != nullptr ? m_source->SurfaceAt(m_camera.RayThrough(position, size()))
                               : std::nullopt;
}

QVector3D ViewportWidget::PointAt(QPointF position) const
{
    if (const auto surface = SurfaceAt(position)) {
        return surface->point;
    }
    return PointOnTargetPlane(m_camera, m_camera.RayThrough(position, size()));
}

void ViewportWidget::AddTool(ViewTool& tool)
{
    m_tools.push_back(&tool);
    setMouseTracking(true);
    update();
}

void ViewportWidget::RemoveTool(ViewTool& tool)
{
    if (m_hold.tool == &tool) {
        CancelHold();
    }
    std::erase(m_tools, &tool);
    setMouseTracking(!m_tools.empty());
    update();
}

bool ViewportWidget::ToolTakes(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton || event.modifiers().testFlag(Qt::AltModifier)) {
        return false;
    }
    const auto taker = std::find_if(m_tools.rbegin(), m_tools.rend(),
                                    [&](ViewTool* tool) { return tool->MousePress(event); });
    m_hold.tool = taker != m_tools.rend() ? *taker : nullptr;
    return m_hold.tool != nullptr;
}

void ViewportWidget::mousePressEvent(QMouseEvent* event)
{
    if (m_hold.button != Qt::NoButton && event->buttons().testFlag(m_hold.button)) {
        return;  // a second button does not change what the first one began
    }
    m_hold = {};
    m_hold.button = event->button();
    m_hold.pressed = m_hold.last = event->position();
    m_hold.before = m_camera;
    if (ToolTakes(*event)) {
        return;
    }
    const auto surface = SurfaceAt(event->position());
    m_hold.action =
        ActionOfDrag(m_preset, m_use, {event->button(), event->modifiers(), surface.has_value()});
    // A turn that begins beside all shapes is one of all of them.
    const bool isTurn = m_hold.action == ViewAction::Orbit;
    m_hold.held = surface ? surface->point : isTurn ? m_camera.target : PointAt(event->position());
}

void ViewportWidget::BeginDrag()
{
    m_hold.isDragged = true;
    if (m_hold.action != ViewAction::None) {
        setCursor(m_hold.Cursor());
    }
}

void ViewportWidget::CancelHold()
{
    const PointerHold hold = std::exchange(m_hold, {});
    unsetCursor();
    if (hold.tool != nullptr) {
        hold.tool->MouseCancel();
    } else if (hold.MovesCamera()) {
        MoveCamera(hold.before);
    }
    update();
}

void ViewportWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_hold.tool != nullptr) {
        m_hold.tool->MouseMove(*event);
        return;
    }
    if (m_hold.button == Qt::NoButton) {
        std::find_if(m_tools.rbegin(), m_tools.rend(),
                     [&](ViewTool* tool) { return tool->MouseMove(*event); });
        return;
    }
    const QPointF position = event->position();
    if (!m_hold.isDragged &&
        (position - m_hold.pressed).manhattanLength() >= QApplication::startDragDistance()) {
        BeginDrag();
    }
    if (m_hold.isDragged) {
        const QPointF moved = position - std::exchange(m_hold.last, position);
        if (m_hold.MovesCamera()) {
            MoveCamera(m_hold.Moved(m_camera, moved, QSizeF(size()), m_home.distance));
        }
        update();
    }
}

void ViewportWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != m_hold.button) {
        return;
    }
    const PointerHold hold = std::exchange(m_hold, {});
    unsetCursor();
    if (hold.tool != nullptr) {
        hold.tool->MouseRelease(*event);
    } else if (hold.DrawsBox()) {
        update();
        Q_EMIT boxed(hold.Box(), RuleOfBox(m_preset, hold.pressed, hold.last), event->modifiers());
    } else if (hold.MovesCamera()) {
        RefineWhenIdle();
        Q_EMIT interactionFinished();
    } else if (!hold.isDragged && hold.button == Qt::LeftButton) {
        Q_EMIT clicked(event->position().toPoint(), event->modifiers());
    } else if (!hold.isDragged && hold.button == Qt::RightButton) {
        Q_EMIT menuRequested(event->position().toPoint());
    }
}

// The button may be the beginning of a drag, so its menu comes when it is released.
void ViewportWidget::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Mouse) {
        Q_EMIT menuRequested(rect().center());
    }
}

// The first click of the two was one already.
void ViewportWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton && m_hold.tool == nullptr) {
        m_hold = {};
        Q_EMIT doubleClicked(event->position().toPoint());
    }
}

void ViewportWidget::wheelEvent(QWheelEvent* event)
{
    const auto steps = static_cast<float>(event->angleDelta().y()) / kWheelUnitsPerStep;
    if (steps == 0.0F) {
        return;
    }
    MoveCamera(Zoomed(m_camera, steps, PointAt(event->position()), m_home.distance));
    m_motionEnd.start();
    event->accept();
}

void ViewportWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_hold.button != Qt::NoButton) {
        CancelHold();
        return;
    }
    const bool isTaken = std::any_of(m_tools.rbegin(), m_tools.rend(),
                                     [event](ViewTool* tool) { return tool->KeyPress(*event); });
    if (isTaken) {
        return;
    }
    if (const auto moved = MovedByKey(m_camera, *event, QSizeF(size()), m_home.distance)) {
        MoveCamera(*moved);
        m_motionEnd.start();
    } else if (event->key() == Qt::Key_Escape) {
        Q_EMIT escaped();
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool ViewportWidget::event(QEvent* event)
{
    // Its keys come before those of menus.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.key() == Qt::Key_Escape ||
            MovedByKey(m_camera, key, QSizeF(size()), m_home.distance)) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

void ViewportWidget::focusInEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    m_showsFocus = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                   reason == Qt::ShortcutFocusReason;
    QWidget::focusInEvent(event);
}

void ViewportWidget::focusOutEvent(QFocusEvent* event)
{
    m_showsFocus = false;
    QWidget::focusOutEvent(event);
}

void ViewportWidget::leaveEvent(QEvent* event)
{
    for (ViewTool* tool : m_tools) {
        tool->MouseLeave();
    }
    QWidget::leaveEvent(event);
}

void ViewportWidget::hideEvent(QHideEvent* event)
{
    CancelHold();
    QWidget::hideEvent(event);
}

}  // namespace studio
