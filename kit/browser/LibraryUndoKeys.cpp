#include "LibraryUndoKeys.h"

#include "LibraryBrowser.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QUndoStack>

namespace studio {
namespace {

bool IsInBrowser(const QObject* watched)
{
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (qobject_cast<const QLineEdit*>(widget) != nullptr) {
        return false;
    }
    while (widget != nullptr && qobject_cast<const LibraryBrowser*>(widget) == nullptr) {
        widget = widget->parentWidget();
    }
    return widget != nullptr;
}

}  // namespace

// Browsers come and go with dialogs, so the application is watched rather than each.
LibraryUndoKeys::LibraryUndoKeys(QUndoStack& history, QObject* parent)
    : QObject(parent), m_history(history)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool LibraryUndoKeys::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOffered = event->type() == QEvent::ShortcutOverride;
    if (!isOffered && event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool undoes = key->matches(QKeySequence::Undo);
    if ((!undoes && !key->matches(QKeySequence::Redo)) || !IsInBrowser(watched)) {
        return false;
    }
    event->accept();  // the key is offered to the menu only when nobody wants it
    if (!isOffered) {
        undoes ? m_history.undo() : m_history.redo();
    }
    return true;
}

}  // namespace studio
