#pragma once

#include <QObject>

class QUndoStack;

namespace studio {

/// Undo and Redo inside a library's browser take back what was done to libraries, not what was done
/// to the scene. A search and a name being typed keep their own.
class LibraryUndoKeys : public QObject {
    Q_OBJECT

public:
    /// The history is the parent's, or outlives it.
    LibraryUndoKeys(QUndoStack& history, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QUndoStack& m_history;
};

}  // namespace studio
