#pragma once

#include "Database.h"
#include "EntryMarks.h"
#include "LibraryEntry.h"
#include "LibrarySchema.h"

#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace studio {

struct LibraryQuery;

/// A material or texture library: one SQLite file, read and changed in place. An index counts the
/// entries that are not in the trash, in file order from 0; what it costs to reach an entry does
/// not depend on how many there are.
///
/// A change is on the disk when its function returns, or has not happened at all. Every function
/// may throw an Error of status FileFailed that names the file; indexes outside 0 to Count() - 1
/// are SubscriptOutOfRange. Other processes may read and change the file meanwhile. One thread at a
/// time.
class LibraryFile {
public:
    static constexpr std::int32_t kAllOfTrash = -1;

    /// A missing file is not made. Read-only where writing is not possible; a file that is refused
    /// is left as it was.
    [[nodiscard]] static LibraryFile Open(const std::string& path, LibraryKind kind);
    /// Empty, of this program alone, and gone with it.
    [[nodiscard]] static LibraryFile InMemory(LibraryKind kind);
    /// Makes an empty library. An existing file is left alone and reported.
    static void Create(const std::string& path, LibraryKind kind);

    [[nodiscard]] const std::string& Path() const { return m_database.Path(); }  ///< absolute
    [[nodiscard]] LibraryKind Kind() const { return m_kind; }
    /// Why nothing can be changed, for a person; empty when changes are possible.
    [[nodiscard]] const std::string& ReadOnlyReason() const { return m_readOnlyReason; }
    /// Of one in memory: why its user cannot change it; empty if he can.
    void SetReadOnly(std::string reason) { m_readOnlyReason = std::move(reason); }
    [[nodiscard]] bool IsInMemory() const { return m_isInMemory; }
    /// Fails as every change would when there is such a reason.
    void RequireWritable() const;
    /// Told after the change that gave a library of the first format this one, which is also the
    /// first of all changes: as it was before it is kept in this file beside it. A change is
    /// refused when that cannot be written.
    using BackupListener = std::function<void(const std::string& backup)>;
    void SetBackupListener(BackupListener listener) { m_backupListener = std::move(listener); }

    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(m_ids.size()); }
    [[nodiscard]] EntryId IdAt(std::int32_t index) const;
    /// Nothing for an entry in the trash.
    [[nodiscard]] std::optional<std::int32_t> IndexOf(EntryId id) const;

    [[nodiscard]] std::string NameAt(std::int32_t index);  ///< valid UTF-8
    /// Also of one in the trash; empty when there is no such entry.
    [[nodiscard]] std::string NameOf(EntryId id);
    [[nodiscard]] std::string JsonAt(std::int32_t index);
    /// A short text that changes with the entry's record and with nothing else, and comes back with
    /// it; the same in every file that has the record. Empty when there is no such entry.
    [[nodiscard]] std::string RevisionOf(EntryId id);
    /// Nothing of an entry that has none, as those of a library of the first format.
    [[nodiscard]] EntryDetails DetailsOf(EntryId id);
    /// Those in use, by name.
    [[nodiscard]] std::vector<LabelUse> Labels(LabelKind kind);
    [[nodiscard]] std::vector<std::string> Authors();
    [[nodiscard]] std::vector<std::string> Licences();
    /// PNG as stored, empty when there is none.
    [[nodiscard]] std::string ThumbnailAt(std::int32_t index);
    /// Entries outside the trash that have this name, in any case.
    [[nodiscard]] std::vector<EntryId> IdsNamed(const std::string& name);
    /// Indexes in file order, but the latest first when it asks for what the user used lately.
    /// Errors: FileFailed.
    [[nodiscard]] std::vector<std::int32_t> Search(const LibraryQuery& query,
                                                   const EntryMarks& marks = {});

    EntryId Add(const NewEntry& entry);
    /// All in one change, in this order, at the end.
    std::vector<EntryId> Add(std::span<const NewEntry> entries);
    void Rename(EntryId id, const std::string& name);
    /// Record, what searches look at and the thumbnail become those of `entry`; id, place and name
    /// stay. Nothing happens when there is no such entry.
    void Replace(EntryId id, const NewEntry& entry);
    /// All in one change.
    void Describe(std::span<const DescribedEntry> entries);
    void SetThumbnails(std::span<const EntryPicture> pictures);

    /// Of every entry, those in the trash too, all in one change. Nothing for one that stays as it
    /// is.
    using ContentEdit = std::function<std::optional<EntryContent>(const std::string& json)>;
    void EditContents(const ContentEdit& edit);

    /// Into the trash, which is in the file too. Entries that are there already stay there.
    void Remove(std::span<const EntryId> ids);
    void Remove(EntryId id) { Remove(std::span(&id, 1)); }
    /// Back to where they were.
    void Restore(std::span<const EntryId> ids);
    void Restore(EntryId id) { Restore(std::span(&id, 1)); }
    /// Latest first; the latest of them when there are more.
    [[nodiscard]] std::vector<TrashedEntry> Trash(std::int32_t most = kAllOfTrash);
    [[nodiscard]] std::int64_t TrashCount();
    /// Irrevocably, and gives the space back.
    void EmptyTrash();

    /// Whether another program changed the file since the last call or change; the entries are
    /// counted anew then.
    bool Refresh();
    /// Everything that is wrong with the file's structure, for a person; reads all of it.
    [[nodiscard]] std::vector<std::string> StructureProblems();

private:
    enum class Place { Disk, Memory };
    LibraryFile(Database database, LibraryKind kind, Place place);

    template <typename Work>
    void Change(const Work& work);
    void Load();
    EntryId Insert(const NewEntry& entry);
    void PutDetails(EntryId id, const EntryDetails& details);
    void PutPicture(EntryId id, const std::string& png);
    void SetTrashed(EntryId id, std::int64_t trashed);

    Database m_database;
    LibraryKind m_kind;
    bool m_isInMemory;
    std::string m_readOnlyReason;
    BackupListener m_backupListener;
    std::vector<EntryId> m_ids;  ///< ascending, not those in the trash
    std::int64_t m_dataVersion = 0;
};

}  // namespace studio
