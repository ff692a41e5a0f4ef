#include "UndoKeys.h"

#include "SearchField.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace studio {
namespace {

// What is typed there is no part of the material.
bool HasHistoryOfItsOwn(const QWidget& field)
{
    const QWidget* above = field.parentWidget();
    while (above != nullptr && qobject_cast<const QAbstractItemView*>(above) == nullptr) {
        above = above->parentWidget();
    }
    return above != nullptr || qobject_cast<const SearchField*>(&field) != nullptr;
}

}  // namespace

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
        if (isHistory && widget != nullptr && m_panel.isAncestorOf(widget) &&
            !HasHistoryOfItsOwn(*widget)) {
            event->ignore();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace studio
