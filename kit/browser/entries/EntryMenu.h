#pragma once

#include "LibraryEntry.h"

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
    /// They can be copied into the libraries at these paths.
    EntryMenu(LibraryBrowser& browser, LibraryDesk& desk, Place place, const QStringList& targets);

Q_SIGNALS:
    /// The selected entry, as if it had been clicked, but as a link.
    void LinkWanted();
    /// The user agreed to nothing yet.
    void EmptyTrashWanted();
    void CopyWanted(const std::vector<studio::EntryId>& ids, const QString& target);
    /// For the status line.
    void Message(const QString& text);

private:
    void AddEntryActions(Place place);
    void AddMarkActions(bool isMarked);
    void AddDetailActions(bool mayChange);
    void AddCollections(QMenu& menu);
    void AddTargets(bool isMarked, const QStringList& targets);
    enum class Focus { First, Tags };
    void ShowProperties(Focus focus);
    void CollectAnew();
    void AddTrashActions();
    void ShowFile();

    LibraryBrowser& m_browser;
    LibraryDesk& m_desk;
    std::vector<EntryId> m_ids;  ///< that are selected
};

}  // namespace studio
