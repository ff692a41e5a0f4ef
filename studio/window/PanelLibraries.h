#pragma once

#include "LibraryEntry.h"
#include "LibrarySchema.h"
#include "MaterialText.h"

#include <QObject>
#include <QPoint>

class QMenuBar;
class QUndoStack;

namespace studio {

class LibraryBrowser;
class LibraryDesk;
class LibraryLinks;
class PanelDock;
class ScenePane;
class StudioHost;
class WindowMessages;
struct AddRequest;
struct LibraryChange;
struct NamedMaterial;

/// What the window does with the libraries of the panel: its menu, the menus of their entries,
/// their changes as undo steps, and what is dragged out of them onto the scene.
class PanelLibraries : public QObject {
    Q_OBJECT

public:
    /// All of it outlives this object.
    PanelLibraries(StudioHost& host, WindowMessages& messages, PanelDock& panel);
    ~PanelLibraries() override;

    /// Where no libraries are shipped the user begins with empty ones.
    static void ProvideFirst(StudioHost& host, WindowMessages& messages);

    [[nodiscard]] QUndoStack& History();
    void AddTo(QMenuBar& bar);
    /// Lets what is dragged out of the libraries be dropped on the shapes.
    void DropOn(ScenePane& scene, LibraryLinks& links);
    /// Shows the library in the panel.
    void Open(const QString& file, LibraryKind kind);
    /// Puts another material in the place of an entry's, as an undo step of the libraries. False
    /// when that cannot be; the user knows then.
    bool Replace(const EntryOrigin& entry, const NamedMaterial& material);
    /// New entries, which are made already, become an undo step.
    void ShowImported(const LibraryChange& change);
    /// Of other programs.
    void LookForChanges();

Q_SIGNALS:
    /// The selected entry is to be linked to.
    void LinkWanted(studio::LibraryBrowser& browser);

private:
    void ConnectDesk();
    /// False when the user thinks better of it.
    bool AskBeforeAdd(LibraryKind kind, AddRequest& request);
    /// Those of the folder that may be changed, and the open one; by their paths.
    [[nodiscard]] QStringList Targets(LibraryKind kind) const;
    void ConnectDrops();
    void AddDropped(const NamedMaterial& named);
    void AddFiles(const QStringList& files);
    /// Entries of the open library, into another.
    void Copy(LibraryKind kind, const std::vector<EntryId>& ids, const QString& target);
    /// For what is added to the open library where one looks at a collection.
    [[nodiscard]] EntryDetails ShownDetails(LibraryKind kind) const;
    /// What was added shows.
    void ShowAdded(LibraryKind kind);
    void EmptyTrash();
    void ShowEntryMenu(LibraryBrowser& browser, QPoint globalPosition);

    StudioHost& m_host;
    WindowMessages& m_messages;
    PanelDock& m_panel;
    LibraryDesk* m_desk;
};

}  // namespace studio
