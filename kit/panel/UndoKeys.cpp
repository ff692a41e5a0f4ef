#include "UndoKeys.h"

#include "LibraryBrowser.h"
#include "SearchField.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QUndoStack>

namespace studio {
namespace {

template <typename Type>
bool IsIn(const QWidget* widget)
{
    while (widget != nullptr && qobject_cast<const Type*>(widget) == nullptr) {
        widget = widget->parentWidget();
    }
    return widget != nullptr;
}

}  // namespace

// Fields and browsers come and go with plug-ins and dialogs, so the application is watched rather
// than each of them.
UndoKeys::UndoKeys(QWidget& panel, QUndoStack& scene, QUndoStack& libraries, QObject* parent)
    : QObject(parent), m_panel(panel), m_scene(scene), m_libraries(libraries)
{
    QCoreApplication::instance()->installEventFilter(this);
}

QUndoStack* UndoKeys::HistoryAt(const QWidget& widget) const
{
    if (IsIn<SearchField>(&widget) || IsIn<QAbstractItemView>(widget.parentWidget())) {
        return nullptr;
    }
    if (IsIn<LibraryBrowser>(&widget)) {
        return &m_libraries;
    }
    return m_panel.isAncestorOf(&widget) ? &m_scene : nullptr;
}

bool UndoKeys::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOffered = event->type() == QEvent::ShortcutOverride;
    if (!isOffered && event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool undoes = key->matches(QKeySequence::Undo);
    const auto* widget = qobject_cast<const QWidget*>(watched);
    // What a field leaves is offered to those around it, which were not meant.
    if ((!undoes && !key->matches(QKeySequence::Redo)) || widget == nullptr ||
        !widget->hasFocus()) {
        return false;
    }
    QUndoStack* const history = HistoryAt(*widget);
    if (history == nullptr) {
        return false;
    }
    event->accept();  // the key is offered to the menu only when nobody wants it
    if (!isOffered) {
        undoes ? history->undo() : history->redo();
    }
    return true;
}

}  // namespace studio
