#include "DatabaseError.h"
#include "LibraryBackup.h"
#include "LibraryFile.h"
#include <CorvexMaterial/Status.h>

#include <QScopeGuard>

#include <algorithm>

namespace studio {
namespace {

constexpr const char* kInsertEntry =
    "INSERT INTO entries (name, folded, colour, ambient, emissive, specular, transparency, "
    "doublesided, alphatest, layers, raytraced, width, height, plugin, files, fields) "
    "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16)";

constexpr const char* kReplaceEntry =
    "UPDATE entries SET (colour, ambient, emissive, specular, transparency, doublesided, "
    "alphatest, layers, raytraced, width, height, plugin, files, fields) = "
    "(?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16) WHERE id = ?1";

/// From the third parameter on.
void BindSearched(Statement& row, const SearchValues& search)
{
    int parameter = 3;
    for (const auto& number : search.numbers) {
        if (number) {
            row.Bind(parameter, *number);
        }
        ++parameter;
    }
    for (const std::string& text : search.texts) {
        row.Bind(parameter++, text);
    }
}

}  // namespace

// Work may rely on the entries being counted as they are in the file. After a failure they are
// counted as before: whoever shows them has not been told of any other.
template <typename Work>
void LibraryFile::Change(const Work& work)
{
    RequireWritable();
    Transaction change(m_database, Transaction::Purpose::Write);
    std::optional<LibraryBackup> backup;
    const auto make = [&] {
        if (LibraryFormatOf(m_database) < kLibraryVersion) {
            backup.emplace(m_database);
            UpgradeLibraryTables(m_database);
        }
        work();
        change.Commit();
        if (backup) {
            backup->Keep();
        }
    };
    const auto tell = [&] {
        if (backup && m_backupListener) {
            m_backupListener(backup->Path());
        }
    };
    if (m_database.Integer("PRAGMA data_version") == m_dataVersion) {
        make();
        tell();
        return;
    }
    auto asShown = qScopeGuard([this, ids = m_ids, version = m_dataVersion]() mutable {
        m_ids = std::move(ids);
        m_dataVersion = version;
    });
    Load();
    make();
    asShown.dismiss();
    tell();
}

void LibraryFile::RequireWritable() const
{
    if (!m_readOnlyReason.empty()) {
        ThrowDatabaseError(Path(), "it cannot be changed: " + m_readOnlyReason);
    }
}

EntryId LibraryFile::Add(const NewEntry& entry)
{
    return Add(std::span(&entry, 1)).front();
}

std::vector<EntryId> LibraryFile::Add(std::span<const NewEntry> entries)
{
    std::vector<EntryId> ids;
    Change([&] {
        for (const NewEntry& entry : entries) {
            ids.push_back(Insert(entry));
        }
    });
    m_ids.insert(m_ids.end(), ids.begin(), ids.end());
    return ids;
}

void LibraryFile::Rename(EntryId id, const std::string& name)
{
    Change([&] {
        Statement rename =
            m_database.Use("UPDATE entries SET name = ?2, folded = ?3 WHERE id = ?1");
        rename.Bind(1, id).Bind(2, name).Bind(3, Folded(name)).Run();
    });
}

void LibraryFile::Replace(EntryId id, const NewEntry& entry)
{
    Change([&] {
        Statement row = m_database.Use(kReplaceEntry);
        row.Bind(1, id);
        BindSearched(row, entry.search);
        row.Run();
        m_database.Use("UPDATE contents SET json = ?2 WHERE entry = ?1")
            .Bind(1, id)
            .Bind(2, entry.json)
            .Run();
        m_database.Use("DELETE FROM thumbnails WHERE entry = ?1").Bind(1, id).Run();
        if (!entry.png.empty()) {
            PutPicture(id, entry.png);
        }
    });
}

void LibraryFile::Describe(std::span<const DescribedEntry> entries)
{
    Change([&] {
        for (const DescribedEntry& entry : entries) {
            Statement there = m_database.Use("SELECT 1 FROM entries WHERE id = ?1");
            if (there.Bind(1, entry.id).Step()) {
                PutDetails(entry.id, entry.details);
            }
        }
    });
}

void LibraryFile::SetThumbnails(std::span<const EntryPicture> pictures)
{
    Change([&] {
        for (const EntryPicture& picture : pictures) {
            PutPicture(picture.id, picture.png);
        }
    });
}

void LibraryFile::EditContents(const ContentEdit& edit)
{
    Change([&] {
        std::vector<std::pair<EntryId, EntryContent>> edited;
        Statement rows = m_database.Use("SELECT entry, json FROM contents ORDER BY entry");
        while (rows.Step()) {
            if (auto content = edit(std::string(rows.Text(1)))) {
                edited.emplace_back(rows.Integer(0), std::move(*content));
            }
        }
        for (const auto& [id, content] : edited) {
            m_database.Use("UPDATE contents SET json = ?2 WHERE entry = ?1")
                .Bind(1, id)
                .Bind(2, content.json)
                .Run();
            m_database.Use("UPDATE entries SET fields = ?2 WHERE id = ?1")
                .Bind(1, id)
                .Bind(2, content.fields)
                .Run();
        }
    });
}

void LibraryFile::Remove(std::span<const EntryId> ids)
{
    Change([&] {
        const std::int64_t latest = m_database.Integer("SELECT max(trashed) FROM entries");
        for (const EntryId id : ids) {
            SetTrashed(id, latest + 1);
        }
    });
    std::vector<EntryId> removed(ids.begin(), ids.end());
    std::ranges::sort(removed);
    std::erase_if(m_ids, [&](EntryId id) { return std::ranges::binary_search(removed, id); });
}

void LibraryFile::Restore(std::span<const EntryId> ids)
{
    std::vector<EntryId> restored;
    Change([&] {
        for (const EntryId id : ids) {
            SetTrashed(id, 0);
            if (m_database.Integer("SELECT changes()") == 1) {
                restored.push_back(id);
            }
        }
    });
    m_ids.insert(m_ids.end(), restored.begin(), restored.end());
    std::ranges::sort(m_ids);
}

void LibraryFile::EmptyTrash()
{
    Change([&] {
        constexpr const char* kOrphans =
            "DELETE FROM thumbnails WHERE entry IN (SELECT id FROM entries WHERE trashed > 0)";
        m_database.Run(kOrphans);
        m_database.Run(
            "DELETE FROM contents WHERE entry IN (SELECT id FROM entries WHERE trashed > 0)");
        m_database.Run(
            "DELETE FROM details WHERE entry IN (SELECT id FROM entries WHERE trashed > 0)");
        m_database.Run(
            "DELETE FROM labels WHERE entry IN (SELECT id FROM entries WHERE trashed > 0)");
        m_database.Run("DELETE FROM entries WHERE trashed > 0");
    });
    if (m_isInMemory) {
        return;
    }
    try {
        // The copy may be too large for the memory.
        m_database.Run("PRAGMA temp_store = FILE");
        m_database.Run("VACUUM");
    } catch (const CorvexMaterial::Error&) {
        // The trash is empty all the same; without room for a copy the file stays as long as it is.
        return;
    }
}

EntryId LibraryFile::Insert(const NewEntry& entry)
{
    Statement row = m_database.Use(kInsertEntry);
    row.Bind(1, entry.name).Bind(2, Folded(entry.name));
    BindSearched(row, entry.search);
    row.Run();
    const EntryId id = m_database.LastId();
    m_database.Use("INSERT INTO contents (entry, json) VALUES (?1, ?2)")
        .Bind(1, id)
        .Bind(2, entry.json)
        .Run();
    if (!entry.png.empty()) {
        PutPicture(id, entry.png);
    }
    if (entry.details != EntryDetails()) {
        PutDetails(id, entry.details);
    }
    return id;
}

// Another process may have removed the entry for good meanwhile.
void LibraryFile::PutPicture(EntryId id, const std::string& png)
{
    m_database
        .Use("INSERT OR REPLACE INTO thumbnails (entry, png) SELECT ?1, ?2 "
             "WHERE EXISTS (SELECT 1 FROM entries WHERE id = ?1)")
        .Bind(1, id)
        .BindBlob(2, png)
        .Run();
}

void LibraryFile::SetTrashed(EntryId id, std::int64_t trashed)
{
    m_database.Use("UPDATE entries SET trashed = ?2 WHERE id = ?1 AND (trashed = 0) <> (?2 = 0)")
        .Bind(1, id)
        .Bind(2, trashed)
        .Run();
}

}  // namespace studio
