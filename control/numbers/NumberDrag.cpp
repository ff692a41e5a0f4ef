#include "NumberDrag.h"

#include "NumberInput.h"

#include <QApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr double kWayThroughRange = 200.0;  // pixels
constexpr double kNarrowestStep = 2.0;
constexpr double kWidestStep = 16.0;
constexpr double kFine = 0.1;
constexpr double kSnapSteps = 10.0;

}  // namespace

NumberDrag::NumberDrag(QLabel& label, NumberInput& input, QWidget& box)
    : QObject(&input), m_label(label), m_input(input), m_box(box)
{
    label.installEventFilter(this);
    const QString hint = tr("Drag to change it; with Shift finely, with Ctrl in tens of steps.");
    label.setToolTip(label.toolTip().isEmpty() ? hint : label.toolTip() + u'\n' + hint);
}

// While it is dragged every key is watched: the label has no focus of its own.
bool NumberDrag::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (m_state == State::Dragged && isKey &&
        static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        if (event->type() == QEvent::KeyPress) {
            TakeBack();
        }
        return true;
    }
    return watched == &m_label && OnLabel(*event);
}

bool NumberDrag::OnLabel(QEvent& event)
{
    switch (event.type()) {
    case QEvent::Enter:
        if (IsUsable()) {
            m_label.setCursor(Qt::SizeHorCursor);
        }
        return false;
    case QEvent::Leave:
        m_label.unsetCursor();
        return false;
    case QEvent::MouseButtonPress:
        Press(static_cast<const QMouseEvent&>(event));
        return m_state == State::Pressed;
    case QEvent::MouseMove:
        Move(static_cast<const QMouseEvent&>(event));
        return m_state != State::Idle;
    case QEvent::MouseButtonRelease: {
        const bool isClick = m_state == State::Pressed;
        End();
        if (isClick) {
            m_box.setFocus(Qt::MouseFocusReason);
            QMetaObject::invokeMethod(&m_box, "selectAll");
        }
        return isClick;
    }
    case QEvent::Hide:
        End();
        return false;
    default:
        return false;
    }
}

// Boxes may share a label, one of them shown at a time.
bool NumberDrag::IsUsable() const
{
    return m_box.isEnabled() && m_box.isVisible();
}

void NumberDrag::Press(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton || !IsUsable()) {
        return;
    }
    m_state = State::Pressed;
    m_last = event.globalPosition();
}

void NumberDrag::Move(const QMouseEvent& event)
{
    const QPointF now = event.globalPosition();
    if (m_state == State::Pressed &&
        std::abs(now.x() - m_last.x()) >= QApplication::startDragDistance()) {
        Begin();
        m_last = now;
    }
    if (m_state != State::Dragged) {
        return;
    }
    // Screens of different scales lie apart in these pixels: the way between them does not count.
    const bool isSameScreen =
        QGuiApplication::screenAt(now.toPoint()) == QGuiApplication::screenAt(m_last.toPoint());
    const double way = isSameScreen ? now.x() - m_last.x() : 0.0;
    m_last = now;
    const bool isFine = event.modifiers().testFlag(Qt::ShiftModifier);
    const NumberRules& rules = m_input.Rules();
    const double reached = m_reached + way * PerPixel() * (isFine ? kFine : 1.0);
    // No way back has to be made first that the end of the range did not let go forth.
    m_reached = std::clamp(reached, std::min(rules.least, m_first),
                           std::max({rules.least, rules.most, m_first}));
    const bool snaps = event.modifiers().testFlag(Qt::ControlModifier);
    const double grid = rules.step * (snaps ? kSnapSteps : isFine && !rules.isWhole ? kFine : 1.0);
    const double value = grid > 0.0 ? std::round(m_reached / grid) * grid : m_reached;
    if (way != 0.0 && value != m_input.Value()) {
        m_input.Set(value);
    }
}

double NumberDrag::PerPixel() const
{
    const NumberRules& rules = m_input.Rules();
    const double range = rules.most - rules.least;
    if (rules.step <= 0.0) {
        return range / kWayThroughRange;
    }
    return rules.step / std::clamp(kWayThroughRange * rules.step / std::max(range, rules.step),
                                   kNarrowestStep, kWidestStep);
}

void NumberDrag::Begin()
{
    m_input.Commit();
    m_state = State::Dragged;
    m_first = m_input.Value();
    m_reached = m_first;
    m_input.BeginGesture();
    QCoreApplication::instance()->installEventFilter(this);
}

void NumberDrag::End()
{
    if (m_state == State::Dragged) {
        QCoreApplication::instance()->removeEventFilter(this);
        m_input.EndGesture();
    }
    m_state = State::Idle;
}

void NumberDrag::TakeBack()
{
    m_input.Set(m_first);
    End();
}

}  // namespace CorvexMaterial
