#include "HistoryMenu.h"

#include "Tr.h"
#include <CorvexMaterial/PlainText.h>

#include <QMenu>
#include <QUndoStack>

namespace studio {
namespace {

/// A step's name as a part of a menu entry: names of materials and files can be long.
QString InMenu(QString step)
{
    constexpr qsizetype kLongest = 40;
    if (step.size() > kLongest) {
        step = step.left(kLongest - 1) + u'…';
    }
    return CorvexMaterial::PlainCaption(step);
}

}  // namespace

void AddHistory(QMenu& menu, QUndoStack& history, HistoryKeys keys)
{
    QAction* undo = menu.addAction(Tr("&Undo"), &history, &QUndoStack::undo);
    QAction* redo = menu.addAction(Tr("&Redo"), &history, &QUndoStack::redo);
    if (keys == HistoryKeys::Standard) {
        undo->setShortcuts(QKeySequence::Undo);
        redo->setShortcuts(QKeySequence::Redo);
    }
    undo->setEnabled(false);
    redo->setEnabled(false);
    QObject::connect(&history, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    QObject::connect(&history, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    QObject::connect(&history, &QUndoStack::undoTextChanged, undo, [undo](const QString& step) {
        undo->setText(Tr("&Undo %1").arg(InMenu(step)));
    });
    QObject::connect(&history, &QUndoStack::redoTextChanged, redo, [redo](const QString& step) {
        redo->setText(Tr("&Redo %1").arg(InMenu(step)));
    });
}

}  // namespace studio
