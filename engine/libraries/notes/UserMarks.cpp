#include "UserMarks.h"

#include "DatabaseError.h"
#include "DatabaseKind.h"
#include "FileWriting.h"
#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace studio {
namespace {

constexpr std::array kMarkTables{
    "CREATE TABLE marks (library TEXT NOT NULL, entry INTEGER NOT NULL, "
    "favourite INTEGER NOT NULL DEFAULT 0, rating INTEGER NOT NULL DEFAULT 0, "
    "used INTEGER NOT NULL DEFAULT 0, PRIMARY KEY (library, entry)) STRICT, WITHOUT ROWID"};

constexpr DatabaseKind kMarks{0x43767855,
                              1,
                              "list of favourites",
                              "PRAGMA application_id = 0x43767855",
                              "PRAGMA user_version = 1",
                              kMarkTables};

constexpr const char* kForgetOlder =
    "UPDATE marks SET used = 0 WHERE library = ?1 AND used > 0 AND used NOT IN "
    "(SELECT used FROM marks WHERE library = ?1 ORDER BY used DESC LIMIT 50)";
constexpr const char* kForgetEmpty =
    "DELETE FROM marks WHERE favourite = 0 AND rating = 0 AND used = 0";
// Of libraries that nobody opens any more.
constexpr const char* kForgetOldest =
    "UPDATE marks SET used = 0 WHERE used > 0 AND used <= (SELECT max(used) FROM marks) - 5000";

void MakeMarks(const std::string& path)
{
    Database database(":memory:", Database::Mode::New);
    Transaction making(database, Transaction::Purpose::Write);
    MakeTables(database, kMarks);
    making.Commit();
    CorvexMaterial::MakeFolder(std::filesystem::path(path).parent_path());
    CorvexMaterial::WriteFile(path, database.Bytes());
}

void CheckMarks(const std::string& path, Database& database)
{
    Transaction reading(database, Transaction::Purpose::Read);
    if (const std::string cause = HeaderCause(path, kMarks); !cause.empty()) {
        ThrowDatabaseError(path, cause);
    }
    CheckTables(database, kMarks);
}

}  // namespace

bool UserMarks::IsThere() const
{
    std::error_code none;
    return m_database || std::filesystem::exists(m_file, none);
}

// One that is damaged is kept for whoever can make something of it, and a new one begun.
Database& UserMarks::Opened()
{
    if (m_database) {
        return *m_database;
    }
    for (const bool isLastTry : {false, true}) {
        try {
            if (!IsThere()) {
                MakeMarks(m_file);
            }
            Database database(m_file, Database::Mode::Existing);
            CheckMarks(m_file, database);
            return m_database.emplace(std::move(database));
        } catch (const CorvexMaterial::Error&) {
            std::error_code ignored;
            const auto status = std::filesystem::symlink_status(m_file, ignored);
            if (isLastTry || !std::filesystem::is_regular_file(status)) {
                throw;
            }
            std::filesystem::rename(m_file, m_file + ".damaged", ignored);
        }
    }
    ThrowDatabaseError(m_file, "it cannot be opened");
}

EntryMarks UserMarks::Read(const std::string& library)
{
    EntryMarks marks;
    Statement rows =
        Opened().Use("SELECT entry, favourite, rating, used FROM marks WHERE library = ?1");
    rows.Bind(1, library);
    while (rows.Step()) {
        const auto rating = std::clamp<std::int64_t>(rows.Integer(2), 0, kBestRating);
        marks[rows.Integer(0)] = {rows.Integer(1) != 0, static_cast<int>(rating), rows.Integer(3)};
    }
    return marks;
}

const EntryMarks& UserMarks::Of(const std::string& library)
{
    const auto known = m_read.find(library);
    if (known != m_read.end()) {
        return known->second;
    }
    EntryMarks& marks = m_read[library];
    try {
        if (IsThere()) {
            marks = Read(library);
        }
    } catch (const CorvexMaterial::Error&) {
        // The next change tells it.
        marks.clear();
    }
    return marks;
}

template <typename Work>
void UserMarks::Change(const std::string& library, std::span<const std::int64_t> ids,
                       const Work& work)
{
    Database& database = Opened();
    Transaction change(database, Transaction::Purpose::Write);
    for (const std::int64_t id : ids) {
        database.Use("INSERT OR IGNORE INTO marks (library, entry) VALUES (?1, ?2)")
            .Bind(1, library)
            .Bind(2, id)
            .Run();
        work(database, id);
    }
    database.Run(kForgetEmpty);
    EntryMarks marks = Read(library);
    change.Commit();
    m_read.insert_or_assign(library, std::move(marks));
}

void UserMarks::SetFavourite(const std::string& library, std::span<const std::int64_t> ids, bool is)
{
    Change(library, ids, [&](Database& database, std::int64_t id) {
        database.Use("UPDATE marks SET favourite = ?3 WHERE library = ?1 AND entry = ?2")
            .Bind(1, library)
            .Bind(2, id)
            .Bind(3, std::int64_t{is})
            .Run();
    });
}

void UserMarks::SetRating(const std::string& library, std::span<const std::int64_t> ids, int rating)
{
    Change(library, ids, [&](Database& database, std::int64_t id) {
        database.Use("UPDATE marks SET rating = ?3 WHERE library = ?1 AND entry = ?2")
            .Bind(1, library)
            .Bind(2, id)
            .Bind(3, std::int64_t{std::clamp(rating, 0, kBestRating)})
            .Run();
    });
}

void UserMarks::SetUsed(const std::string& library, std::int64_t id)
{
    Change(library, std::span(&id, 1), [&](Database& database, std::int64_t used) {
        database
            .Use("UPDATE marks SET used = (SELECT max(used) + 1 FROM marks) "
                 "WHERE library = ?1 AND entry = ?2")
            .Bind(1, library)
            .Bind(2, used)
            .Run();
        database.Use(kForgetOlder).Bind(1, library).Run();
        database.Run(kForgetOldest);
    });
}

}  // namespace studio
