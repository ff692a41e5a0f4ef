#include "BesideWork.h"

#include <CorvexMaterial/Prompts.h>

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>

#include <array>

namespace CorvexMaterial {

namespace {

constexpr int kGap = 8;
/// Of a title bar, which has no size before the window is shown.
constexpr int kTitle = 32;

/// Windows have the parents that they were given, too.
bool IsIn(const QWidget& widget, const QWidget& ancestor)
{
    for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
        if (at == &ancestor) {
            return true;
        }
    }
    return false;
}

/// What an event comes to, for an action its menu or window; null for what has no widget.
QWidget* WidgetOf(QObject* watched)
{
    while (watched != nullptr && !watched->isWidgetType()) {
        watched = watched->parent();
    }
    return static_cast<QWidget*>(watched);
}

bool IsUsableMeanwhile(const QWidget* widget)
{
    if (qobject_cast<const QScrollBar*>(widget) != nullptr) {
        return true;
    }
    for (; widget != nullptr && !widget->isWindow(); widget = widget->parentWidget()) {
        if (widget->property(kUsableMeanwhileProperty).toBool()) {
            return true;
        }
    }
    return false;
}

/// What a widget leaves alone comes to its parents; the one under the pointer is meant.
bool IsUsableMeanwhile(const QMouseEvent& press)
{
    return IsUsableMeanwhile(QApplication::widgetAt(press.globalPosition().toPoint()));
}

bool IsTurnedByWheel(const QWidget& widget)
{
    return widget.hasFocus() && (qobject_cast<const QAbstractSlider*>(&widget) != nullptr ||
                                 qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
                                 qobject_cast<const QComboBox*>(&widget) != nullptr);
}

bool MovesFocus(int key)
{
    constexpr std::array kKeys{Qt::Key_Tab,     Qt::Key_Backtab, Qt::Key_Shift,
                               Qt::Key_Control, Qt::Key_Alt,     Qt::Key_Meta};
    return std::ranges::find(kKeys, key) != kKeys.end();
}

}  // namespace

BesideWork::BesideWork(QDialog& dialog, QWidget* beside, std::function<void()> leave)
    : QObject(&dialog), m_dialog(dialog), m_beside(beside), m_leave(std::move(leave))
{
    qApp->installEventFilter(this);
}

void BesideWork::Place(QWidget& dialog, const QWidget& beside)
{
    dialog.adjustSize();
    const QRect free = beside.screen()->availableGeometry();
    // The panel around it stays in sight, too.
    const QWidget& panel = beside.isWindow() ? beside : *beside.parentWidget();
    const QRect anchor(panel.mapToGlobal(QPoint()).x(), beside.mapToGlobal(QPoint()).y(),
                       panel.width(), beside.height());
    const QSize size = dialog.size() + QSize(0, kTitle);
    const int left = anchor.left() - kGap - size.width();
    const int right = anchor.right() + kGap;
    QPoint at(right, anchor.top());
    if (right + size.width() > free.right()) {
        at.setX(left);
    }
    if (at.x() < free.left()) {
        // No room beside it: below it, else above.
        const bool fits = anchor.bottom() + kGap + size.height() <= free.bottom();
        at = {anchor.left(), fits ? anchor.bottom() + kGap : anchor.top() - kGap - size.height()};
    }
    const auto within = [](int least, int wanted, int most) {
        return std::max(least, std::min(wanted, most));
    };
    dialog.move(within(free.left(), at.x(), free.right() - size.width()),
                within(free.top(), at.y(), free.bottom() - size.height()));
}

// What a message box brought up over the dialog does is no work beside it.
bool BesideWork::IsOutside(const QWidget& widget) const
{
    const QWidget* const modal = QApplication::activeModalWidget();
    return !IsIn(widget, m_dialog) && (modal == nullptr || IsIn(m_dialog, *modal));
}

// What was begun goes on, unless it went with what the dialog has done.
bool BesideWork::Leave(const QObject* watched)
{
    const QPointer<const QObject> alive(watched);
    const QPointer<QDialog> dialog(&m_dialog);
    const std::function<void()> leave = m_leave;
    leave();
    return alive == nullptr || (dialog != nullptr && dialog->isVisible());
}

bool BesideWork::eventFilter(QObject* watched, QEvent* event)
{
    const bool isShortcut = event->type() == QEvent::Shortcut;
    if (!m_dialog.isVisible() || (!isShortcut && !watched->isWidgetType())) {
        return false;
    }
    QWidget* const widget = WidgetOf(watched);
    if (widget == nullptr || !IsOutside(*widget)) {
        return false;
    }
    switch (event->type()) {
    case QEvent::Shortcut:
        return !watched->property(kUsableMeanwhileProperty).toBool() && Leave(watched);
    case QEvent::Drop:
        return Leave(watched);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (IsUsableMeanwhile(*static_cast<QMouseEvent*>(event))) {
            return false;
        }
        // The button that opened it closes it.
        return widget == m_beside ? (static_cast<void>(Leave(watched)), true) : Leave(watched);
    case QEvent::Wheel:
        return IsTurnedByWheel(*widget) && Leave(watched);
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            m_dialog.reject();
            return true;
        }
        return !MovesFocus(static_cast<QKeyEvent*>(event)->key()) &&
               !IsUsableMeanwhile(QApplication::focusWidget()) && Leave(watched);
    case QEvent::Close:
        return widget->isWindow() && Leave(watched);
    default:
        return false;
    }
}

}  // namespace CorvexMaterial
