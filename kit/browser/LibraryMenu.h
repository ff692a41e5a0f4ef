#pragma once

#include "LibrarySchema.h"

#include <QMenu>

namespace studio {

class LibraryDesk;

/// The menu "Library": what belongs to libraries and has no button on the panel.
class LibraryMenu : public QMenu {
    Q_OBJECT

public:
    /// The desk outlives the menu.
    LibraryMenu(LibraryDesk& desk, QWidget* parent);

    /// A menu of what was deleted; choosing restores. The desk outlives the menu.
    static void AddTrash(QMenu& menu, const QString& title, LibraryDesk& desk, LibraryKind kind);
    /// Does nothing by itself.
    static QAction* AddEmptyTrash(QMenu& menu);

Q_SIGNALS:
    void ChooseLibrary(studio::LibraryKind kind);
    /// The user agreed to nothing yet.
    void EmptyTrashWanted();

private:
    LibraryDesk& m_desk;
};

}  // namespace studio
