#pragma once

#include "studio/libraries/LibrarySchema.h"

#include <QMenu>

namespace studio {

class LibraryDesk;

/// The menu "Library": what belongs to libraries and has no button on the panel.
class LibraryMenu : public QMenu {
    Q_OBJECT

public:
    /// The desk outlives the menu.
    LibraryMenu(LibraryDesk& desk, QWidget* parent);

Q_SIGNALS:
    void ChooseLibrary(studio::LibraryKind kind);
    /// The user agreed to nothing yet.
    void EmptyTrashWanted();

private:
    void AddTrash(const QString& title, LibraryKind kind);
    void ListTrash(QMenu& menu, LibraryKind kind);

    LibraryDesk& m_desk;
};

}  // namespace studio
