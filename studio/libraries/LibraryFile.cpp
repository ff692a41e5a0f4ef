#include "studio/libraries/LibraryFile.h"

#include "host/Status.h"
#include "studio/libraries/LibraryError.h"
#include "studio/libraries/LibraryQuery.h"
#include "studio/libraries/QuerySql.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>
#include <limits>

#include <fcntl.h>
#include <unistd.h>

namespace studio {
namespace {

constexpr const char* kInsertEntry =
    "INSERT INTO entries (name, folded, colour, ambient, emissive, specular, transparency, "
    "doublesided, alphatest, layers, raytraced, width, height, plugin, files, fields) "
    "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16)";
constexpr const char* kIds = "SELECT id FROM entries WHERE trashed = 0 ORDER BY id";

std::string AbsolutePath(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).absoluteFilePath().toStdString();
}

// What another program wrote may be broken.
std::string ValidUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

// Of the user the process acts for; plain `access` asks about the one who started it.
bool MayWrite(const QString& path)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

std::string WriteObstacle(const Database& database)
{
    const QFileInfo file(QString::fromStdString(database.Path()));
    if (!MayWrite(file.filePath())) {
        return errno == EROFS ? "the file system may only be read"
                              : "you have no right to write to the file";
    }
    if (database.IsReadOnly()) {
        return "the file may only be read";
    }
    return MayWrite(file.absolutePath())
               ? ""
               : "you have no right to write to its folder, which every change needs";
}

void RefuseIndex(std::int32_t index)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::SubscriptOutOfRange,
                                "The library has no entry " + std::to_string(index) + '.');
}

}  // namespace

LibraryFile::LibraryFile(Database database, LibraryKind kind)
    : m_database(std::move(database)), m_kind(kind)
{
    Transaction reading(m_database, Transaction::Purpose::Read);
    CheckLibraryTables(m_database);
    Load();
    reading.Commit();
    m_readOnlyReason = WriteObstacle(m_database);
}

LibraryFile LibraryFile::Open(const std::string& path, LibraryKind kind)
{
    const std::string absolute = AbsolutePath(path);
    CheckLibraryHeader(absolute, kind);
    try {
        return {Database(absolute, Database::Mode::Existing), kind};
    } catch (const CorvexMaterial::Error&) {
        RefuseTruncated(absolute);
        throw;
    }
}

void LibraryFile::Create(const std::string& path, LibraryKind kind)
{
    const QFileInfo target(QString::fromStdString(AbsolutePath(path)));
    // Made elsewhere and moved in one step, so that nobody ever sees half a library.
    const QTemporaryDir workshop(target.absolutePath() + QStringLiteral("/.corvex-XXXXXX"));
    if (!workshop.isValid()) {
        ThrowLibraryError(target.filePath().toStdString(),
                          "it cannot be made: " + workshop.errorString().toStdString());
    }
    const QString made = workshop.filePath(QStringLiteral("new"));
    {
        Database database(made.toStdString(), Database::Mode::New);
        Transaction making(database, Transaction::Purpose::Write);
        MakeLibraryTables(database, kind);
        making.Commit();
    }
    QFile file(made);
    if (!file.rename(target.filePath())) {
        ThrowLibraryError(target.filePath().toStdString(),
                          "it cannot be made: " + file.errorString().toStdString());
    }
}

EntryId LibraryFile::IdAt(std::int32_t index) const
{
    if (index < 0 || index >= Count()) {
        RefuseIndex(index);
    }
    return m_ids[static_cast<std::size_t>(index)];
}

std::optional<std::int32_t> LibraryFile::IndexOf(EntryId id) const
{
    const auto place = std::ranges::lower_bound(m_ids, id);
    return place != m_ids.end() && *place == id
               ? std::optional(static_cast<std::int32_t>(place - m_ids.begin()))
               : std::nullopt;
}

std::string LibraryFile::NameAt(std::int32_t index)
{
    Statement name = m_database.Use("SELECT name FROM entries WHERE id = ?1");
    name.Bind(1, IdAt(index));
    return name.Step() ? ValidUtf8(name.Text(0)) : std::string();
}

std::string LibraryFile::JsonAt(std::int32_t index)
{
    Statement json = m_database.Use("SELECT json FROM contents WHERE entry = ?1");
    json.Bind(1, IdAt(index));
    if (!json.Step()) {
        ThrowLibraryError(Path(), "entry " + std::to_string(index + 1) + " is no longer there");
    }
    return std::string(json.Text(0));
}

std::string LibraryFile::ThumbnailAt(std::int32_t index)
{
    Statement png = m_database.Use("SELECT png FROM thumbnails WHERE entry = ?1");
    png.Bind(1, IdAt(index));
    return png.Step() ? std::string(png.Blob(0)) : std::string();
}

std::vector<EntryId> LibraryFile::IdsNamed(const std::string& name)
{
    Statement same =
        m_database.Use("SELECT id FROM entries WHERE folded = ?1 AND +trashed = 0 ORDER BY id");
    same.Bind(1, Folded(name));
    std::vector<EntryId> ids;
    while (same.Step()) {
        ids.push_back(same.Integer(0));
    }
    return ids;
}

std::vector<std::int32_t> LibraryFile::Search(const LibraryQuery& query)
{
    Statement found = CompiledQuery(m_database, query);
    std::vector<std::int32_t> indexes;
    auto place = m_ids.begin();
    while (found.Step()) {
        const EntryId id = found.Integer(0);
        place = std::lower_bound(place, m_ids.end(), id);
        if (place != m_ids.end() && *place == id) {
            indexes.push_back(static_cast<std::int32_t>(place - m_ids.begin()));
        }
    }
    return indexes;
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

void LibraryFile::SetThumbnails(std::span<const EntryPicture> pictures)
{
    Change([&] {
        for (const EntryPicture& picture : pictures) {
            m_database.Use("INSERT OR REPLACE INTO thumbnails (entry, png) VALUES (?1, ?2)")
                .Bind(1, picture.id)
                .BindBlob(2, picture.png)
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

std::vector<TrashedEntry> LibraryFile::Trash()
{
    Statement trashed = m_database.Use(
        "SELECT id, name FROM entries WHERE trashed > 0 ORDER BY trashed DESC, id DESC");
    std::vector<TrashedEntry> entries;
    while (trashed.Step()) {
        entries.push_back({trashed.Integer(0), ValidUtf8(trashed.Text(1))});
    }
    return entries;
}

void LibraryFile::EmptyTrash()
{
    Change([&] {
        constexpr const char* kOrphans =
            "DELETE FROM thumbnails WHERE entry IN (SELECT id FROM entries WHERE trashed > 0)";
        m_database.Run(kOrphans);
        m_database.Run(
            "DELETE FROM contents WHERE entry IN (SELECT id FROM entries WHERE trashed > 0)");
        m_database.Run("DELETE FROM entries WHERE trashed > 0");
    });
    try {
        m_database.Run("VACUUM");
    } catch (const CorvexMaterial::Error&) {
        // The trash is empty all the same; without room for a copy the file stays as long as it is.
        return;
    }
}

bool LibraryFile::Refresh()
{
    if (m_database.Integer("PRAGMA data_version") == m_dataVersion) {
        return false;
    }
    Transaction reading(m_database, Transaction::Purpose::Read);
    Load();
    return true;
}

std::vector<std::string> LibraryFile::StructureProblems()
{
    std::vector<std::string> problems;
    Statement check = m_database.Use("PRAGMA integrity_check(20)");
    while (check.Step()) {
        if (check.Text(0) != "ok") {
            problems.push_back(ValidUtf8(check.Text(0)));
        }
    }
    return problems;
}

// Work may rely on the entries being counted as they are in the file.
template <typename Work>
void LibraryFile::Change(const Work& work)
{
    if (!m_readOnlyReason.empty()) {
        ThrowLibraryError(Path(), "it cannot be changed: " + m_readOnlyReason);
    }
    Transaction change(m_database, Transaction::Purpose::Write);
    if (m_database.Integer("PRAGMA data_version") != m_dataVersion) {
        Load();
    }
    work();
    change.Commit();
}

void LibraryFile::Load()
{
    std::vector<EntryId> ids;
    Statement rows = m_database.Use(kIds);
    while (rows.Step()) {
        ids.push_back(rows.Integer(0));
    }
    if (ids.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        ThrowLibraryError(Path(), "it has too many entries");
    }
    m_dataVersion = m_database.Integer("PRAGMA data_version");
    m_ids = std::move(ids);
}

EntryId LibraryFile::Insert(const NewEntry& entry)
{
    Statement row = m_database.Use(kInsertEntry);
    row.Bind(1, entry.name).Bind(2, Folded(entry.name));
    int parameter = 3;
    for (const auto& number : entry.search.numbers) {
        if (number) {
            row.Bind(parameter, *number);
        }
        ++parameter;
    }
    for (const std::string& text : entry.search.texts) {
        row.Bind(parameter++, text);
    }
    row.Run();
    const EntryId id = m_database.LastId();
    m_database.Use("INSERT INTO contents (entry, json) VALUES (?1, ?2)")
        .Bind(1, id)
        .Bind(2, entry.json)
        .Run();
    if (!entry.png.empty()) {
        m_database.Use("INSERT INTO thumbnails (entry, png) VALUES (?1, ?2)")
            .Bind(1, id)
            .BindBlob(2, entry.png)
            .Run();
    }
    return id;
}

void LibraryFile::SetTrashed(EntryId id, std::int64_t trashed)
{
    m_database.Use("UPDATE entries SET trashed = ?2 WHERE id = ?1 AND (trashed = 0) <> (?2 = 0)")
        .Bind(1, id)
        .Bind(2, trashed)
        .Run();
}

}  // namespace studio
