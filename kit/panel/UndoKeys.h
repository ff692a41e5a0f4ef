#pragma once

#include <QObject>

class QWidget;

namespace studio {

/// Text fields of the panel have an undo of their own that knows only their letters. Inside the
/// panel Undo and Redo belong to the window, whose history knows the material. A search and a name
/// being typed in a list keep theirs.
class UndoKeys : public QObject {
    Q_OBJECT

public:
    /// The panel outlives this object.
    UndoKeys(QWidget& panel, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& m_panel;
};

}  // namespace studio
