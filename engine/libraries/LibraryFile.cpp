#include "LibraryFile.h"

#include "DatabaseError.h"
#include "DatabaseKind.h"
#include "FileWriting.h"
#include "LibraryQuery.h"
#include "QuerySql.h"
#include "StoredPath.h"
#include <CorvexMaterial/Status.h>

#include <QCryptographicHash>
#include <QFileInfo>

#include <algorithm>
#include <limits>

namespace studio {
namespace {

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

std::string WriteObstacle(const Database& database)
{
    if (const std::error_code error = CorvexMaterial::WriteRefusal(database.Path())) {
        return error == std::errc::read_only_file_system ? "the file system may only be read"
                                                         : "you have no right to write to the file";
    }
    if (database.IsReadOnly()) {
        return "the file may only be read";
    }
    return CorvexMaterial::WriteRefusal(FolderOf(database.Path()))
               ? "you have no right to write to its folder, which every change needs"
               : "";
}

void RefuseIndex(std::int32_t index)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::SubscriptOutOfRange,
                                "The library has no entry " + std::to_string(index) + '.');
}

}  // namespace

LibraryFile::LibraryFile(Database database, LibraryKind kind, Place place)
    : m_database(std::move(database)), m_kind(kind), m_isInMemory(place == Place::Memory)
{
    if (m_isInMemory) {
        Load();
        return;
    }
    Transaction reading(m_database, Transaction::Purpose::Read);
    CheckLibraryTables(m_database);
    Load();
    reading.Commit();
    m_readOnlyReason = WriteObstacle(m_database);
    if (m_readOnlyReason.empty()) {
        m_database.RemoveIdleJournal();
    }
}

LibraryFile LibraryFile::Open(const std::string& path, LibraryKind kind)
{
    const std::string absolute = AbsolutePath(path);
    CheckLibraryHeader(absolute, kind);
    try {
        LibraryFile library(Database(absolute, Database::Mode::Existing), kind, Place::Disk);
        // Again: a journal beside it has been rolled back by now.
        CheckLibraryHeader(absolute, kind);
        return library;
    } catch (const CorvexMaterial::Error&) {
        CheckLibraryHeader(absolute, kind);
        RefuseTruncated(absolute);
        throw;
    }
}

LibraryFile LibraryFile::InMemory(LibraryKind kind)
{
    Database database(":memory:", Database::Mode::New);
    {
        Transaction making(database, Transaction::Purpose::Write);
        MakeLibraryTables(database, kind);
        making.Commit();
    }
    return LibraryFile(std::move(database), kind, Place::Memory);
}

void LibraryFile::Create(const std::string& path, LibraryKind kind)
{
    // In memory, so that nobody ever sees half a library.
    Database database(":memory:", Database::Mode::New);
    Transaction making(database, Transaction::Purpose::Write);
    MakeLibraryTables(database, kind);
    making.Commit();
    CorvexMaterial::WriteFile(AbsolutePath(path), database.Bytes(),
                              CorvexMaterial::Lifetime::Lasting, CorvexMaterial::Existing::Kept);
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
    return NameOf(IdAt(index));
}

std::string LibraryFile::NameOf(EntryId id)
{
    Statement name = m_database.Use("SELECT name FROM entries WHERE id = ?1");
    name.Bind(1, id);
    return name.Step() ? ValidUtf8(name.Text(0)) : std::string();
}

std::string LibraryFile::JsonAt(std::int32_t index)
{
    Statement json = m_database.Use("SELECT json FROM contents WHERE entry = ?1");
    json.Bind(1, IdAt(index));
    if (!json.Step()) {
        ThrowDatabaseError(Path(), "entry " + std::to_string(index + 1) + " is no longer there");
    }
    return std::string(json.Text(0));
}

std::string LibraryFile::RevisionOf(EntryId id)
{
    constexpr int kSigns = 16;
    Statement json = m_database.Use("SELECT json FROM contents WHERE entry = ?1");
    json.Bind(1, id);
    if (!json.Step()) {
        return {};
    }
    const std::string_view text = json.Text(0);
    const auto bytes = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1)
        .toHex()
        .first(kSigns)
        .toStdString();
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

std::vector<std::int32_t> LibraryFile::Search(const LibraryQuery& query, const EntryMarks& marks)
{
    const bool hasDetails = LibraryFormatOf(m_database) >= kFormatWithDetails;
    Statement found = CompiledQuery(m_database, query, {hasDetails, marks});
    std::vector<std::int32_t> indexes;
    auto place = m_ids.begin();
    while (found.Step()) {
        const EntryId id = found.Integer(0);
        place = std::lower_bound(place, m_ids.end(), id);
        if (place != m_ids.end() && *place == id) {
            indexes.push_back(static_cast<std::int32_t>(place - m_ids.begin()));
        }
    }
    if (AsksForUsed(query)) {
        std::ranges::stable_sort(indexes, std::greater(), [&](std::int32_t index) {
            return MarkOf(marks, IdAt(index)).used;
        });
    }
    return indexes;
}

std::vector<TrashedEntry> LibraryFile::Trash(std::int32_t most)
{
    Statement trashed = m_database.Use(
        "SELECT id, name FROM entries WHERE trashed > 0 ORDER BY trashed DESC, id DESC LIMIT ?1");
    trashed.Bind(1, most);
    std::vector<TrashedEntry> entries;
    while (trashed.Step()) {
        entries.push_back({trashed.Integer(0), ValidUtf8(trashed.Text(1))});
    }
    return entries;
}

std::int64_t LibraryFile::TrashCount()
{
    return m_database.Integer("SELECT count(*) FROM entries WHERE trashed > 0");
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

void LibraryFile::Load()
{
    std::vector<EntryId> ids;
    Statement rows = m_database.Use(kIds);
    while (rows.Step()) {
        ids.push_back(rows.Integer(0));
    }
    if (ids.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        ThrowDatabaseError(Path(), "it has too many entries");
    }
    m_dataVersion = m_database.Integer("PRAGMA data_version");
    m_ids = std::move(ids);
}

}  // namespace studio
