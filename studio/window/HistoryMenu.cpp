#include "HistoryMenu.h"

#include "ShownText.h"
#include "Tr.h"

#include <QMenu>
#include <QUndoStack>

namespace studio {
void AddHistory(QMenu& menu, QUndoStack& history, HistoryKeys keys)
{
    QAction* undo = menu.addAction(Tr("&Undo"), &history, &QUndoStack::undo);
    QAction* redo = menu.addAction(Tr("&Redo"), &history, &QUndoStack::redo);
    if (keys == HistoryKeys::Standard) {
        undo->setShortcuts(QKeySequence::Undo);
        redo->setShortcuts(QKeySequence::Redo);
    }
    undo->setStatusTip(Tr("Takes back what was done last"));
    redo->setStatusTip(Tr("Does again what was taken back"));
    undo->setEnabled(false);
    redo->setEnabled(false);
    QObject::connect(&history, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    QObject::connect(&history, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    QObject::connect(&history, &QUndoStack::undoTextChanged, undo, [undo](const QString& step) {
        undo->setText(Tr("&Undo %1").arg(MenuCaption(step)));
    });
    QObject::connect(&history, &QUndoStack::redoTextChanged, redo, [redo](const QString& step) {
        redo->setText(Tr("&Redo %1").arg(MenuCaption(step)));
    });
}

}  // namespace studio
