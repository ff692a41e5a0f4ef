#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;
class QMenu;
class QUndoStack;

namespace studio {

class LibraryLinks;
class Selection;

/// The line above the panel that tells what the material it shows is linked to, with what can be
/// done about that. Not there for a material of its own.
class LinkBar : public QFrame {
    Q_OBJECT

public:
    /// All of them outlive it.
    LinkBar(LibraryLinks& links, Selection& selection, const QUndoStack& history, QWidget* parent);

private:
    void ShowSoon();
    void ShowNow();

    LibraryLinks& m_links;
    Selection& m_selection;
    QLabel* m_text;
    QMenu* m_menu;
    QTimer m_soon;
};

}  // namespace studio
