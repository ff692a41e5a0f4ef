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

    [[nodiscard]] UserMarks& Marks() { return m_browsers.Marks(); }
    /// Of the libraries alone: they outlive every scene that one works on.
    [[nodiscard]] QUndoStack& History() { return m_history; }

    /// This change has been made already; it becomes one step, however many entries it has.
    void Record(LibraryKind kind, const LibraryChange& change);
    /// Told together with the change that made it.
    void TellBackup(const std::string& backup);
    void Rename(LibraryKind kind, EntryId id, const QString& name);
    /// Puts another material in the place of an entry's. False when that cannot be; the user knows
    /// then.
    bool Replace(const EntryOrigin& entry, NewEntry after);
    void RenameSelected(LibraryKind kind);
    /// What is noted of entries, as one step.
    void Describe(LibraryKind kind, const std::string& library,
                  const std::vector<DescribedEntry>& entries);
    /// Puts them into this collection, in which they may be already.
    void Collect(LibraryKind kind, const std::vector<EntryId>& ids, const std::string& collection);
    /// Several, into the trash as one step.
    void Remove(LibraryKind kind, const std::vector<EntryId>& ids);
    /// The user's own: no steps, and in no library. Those that are all favourites are none then.
    void ToggleFavourites(LibraryKind kind, const std::vector<EntryId>& ids);
    void Rate(LibraryKind kind, const std::vector<EntryId>& ids, int rating);
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
    bool MakeStep(LibraryEdit change);
    void MarkUsed(const std::string& library, EntryId id);
    void Push(LibraryEdit change);
    void TellSoon(const QString& text);
    void RevealSoon(LibraryKind kind, EntryId id);
    bool Reporting(const std::function<void()>& work);
    /// Nothing is done while no library is open.
    void InOpen(LibraryKind kind, const std::function<void(LibraryFile&)>& work);

    LibraryBrowsers& m_browsers;
    QString m_backup;  ///< is told with the change that made it
    QUndoStack m_history;
};

}  // namespace studio
