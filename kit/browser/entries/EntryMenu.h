#pragma once

#include <QMenu>

namespace studio {

class LibraryBrowser;
class LibraryDesk;

/// The context menu of a library browser: what can be done with the marked entry, and the trash.
class EntryMenu : public QMenu {
    Q_OBJECT

public:
    /// A browser in a dialog is for choosing: entries are deleted on the panel.
    enum class Place { Panel, Dialog };

    /// Both outlive the menu.
    EntryMenu(LibraryBrowser& browser, LibraryDesk& desk, Place place);

Q_SIGNALS:
    /// The user agreed to nothing yet.
    void EmptyTrashWanted();
    /// For the status line.
    void Message(const QString& text);

private:
    void AddEntryActions(Place place);
    void AddTrashActions();
    void ShowFile();

    LibraryBrowser& m_browser;
    LibraryDesk& m_desk;
};

}  // namespace studio
