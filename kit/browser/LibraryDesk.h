#pragma once

#include "LibraryBrowsers.h"
#include "LibraryChange.h"
#include "LibraryStep.h"

#include <QObject>
#include <QUndoStack>

namespace studio {

/// What happens to libraries beside the panel's own buttons: every add, delete and rename becomes a
/// step of their own undo history, and the trash can be looked into and emptied.
class LibraryDesk : public QObject {
    Q_OBJECT

public:
    /// The browsers outlive the desk.
    explicit LibraryDesk(LibraryBrowsers& browsers, QObject* parent = nullptr);

    /// Of the libraries alone: they outlive every scene that one works on.
    [[nodiscard]] QUndoStack& History() { return m_history; }

    /// This change has been made already; it becomes one step, however many entries it has.
    void Record(LibraryKind kind, const LibraryChange& change);
    void Rename(LibraryKind kind, EntryId id, const QString& name);
    void RenameSelected(LibraryKind kind);
    /// Shows what other programs changed in the open libraries meanwhile.
    void LookForChanges();

    /// Latest first; nothing while no library is open or it cannot be read.
    [[nodiscard]] std::vector<TrashedEntry> Trash(LibraryKind kind, std::int32_t most);
    [[nodiscard]] std::int64_t TrashCount(LibraryKind kind);
    /// As an undo step.
    void Restore(LibraryKind kind, const TrashedEntry& entry);
    /// For good: deletes from before can no longer be undone.
    void EmptyTrash(LibraryKind kind);

Q_SIGNALS:
    /// For the status line.
    void Message(const QString& text);
    /// Something could not be done; a person has to know.
    void Refused(const QString& message);

private:
    bool Make(const LibraryEdit& change);
    void MakeStep(LibraryEdit change);
    void Push(LibraryEdit change);
    void RevealSoon(LibraryKind kind, EntryId id);
    bool Reporting(const std::function<void()>& work);
    /// Nothing is done while no library is open.
    void InOpen(LibraryKind kind, const std::function<void(LibraryFile&)>& work);

    LibraryBrowsers& m_browsers;
    QUndoStack m_history;
};

}  // namespace studio
