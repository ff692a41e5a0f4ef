#pragma once

class QMenu;
class QUndoStack;

namespace studio {

enum class HistoryKeys { Standard, None };

/// Undo and Redo, with the step's name.
void AddHistory(QMenu& menu, QUndoStack& history, HistoryKeys keys);

}  // namespace studio
