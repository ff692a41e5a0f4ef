#pragma once

class QMenu;
class QUndoStack;

namespace studio {

/// Undo and Redo, with the step's name.
void AddHistory(QMenu& menu, QUndoStack& history);

}  // namespace studio
