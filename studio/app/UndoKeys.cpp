#include "studio/app/UndoKeys.h"

#include <QKeyEvent>

namespace studio {

UndoKeys::UndoKeys(QWidget& panel, QObject* parent) : QObject(parent), m_panel(panel)
{
    // Fields come and go with plug-ins, so the application is watched rather than each field.
    qApp->installEventFilter(this);
}

bool UndoKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        const auto* widget = qobject_cast<const QWidget*>(watched);
        const bool isHistory = key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
        if (isHistory && widget != nullptr && m_panel.isAncestorOf(widget)) {
            event->ignore();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace studio
