#pragma once

#include <QObject>

class QUndoStack;
class QWidget;

namespace studio {

/// Text fields of the panel have an undo of their own that knows only their letters. Inside the
/// panel Undo and Redo are the scene's, whose history knows the material; inside a library's
/// browser, of a dialog too, they are the libraries'. A search and a name being typed in a list
/// keep theirs.
class UndoKeys : public QObject {
    Q_OBJECT

public:
    /// All of them outlive this object.
    UndoKeys(QWidget& panel, QUndoStack& scene, QUndoStack& libraries, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QUndoStack* HistoryAt(const QWidget& widget) const;

    QWidget& m_panel;
    QUndoStack& m_scene;
    QUndoStack& m_libraries;
};

}  // namespace studio
