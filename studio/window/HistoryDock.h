#pragma once

class QMainWindow;
class QMenu;
class QUndoStack;

namespace studio {

/// A panel that lists the steps of a history; a click on one goes there. The menu shows and hides
/// it.
void AddHistoryDock(QMainWindow& window, QMenu& menu, QUndoStack& history);

}  // namespace studio
