#include "Database.h"

#include "DatabaseError.h"
#include "DatabaseVfs.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <thread>
#include <vector>

namespace studio {
namespace {

// Far beyond any material or thumbnail, and small enough that a hostile file cannot fill the
// memory.
constexpr int kMostValueBytes = 16 << 20;

constexpr std::chrono::milliseconds kMostWait{5000};
constexpr std::chrono::milliseconds kPause{2};

struct SqliteCause {
    int code;
    const char* text;
};

// The special before the general.
constexpr std::array kJournalCauses{
    SqliteCause{kJournalIsNoFile,
                "is not a plain file of its own, or is another user's; move it away and try again"},
    SqliteCause{kJournalIsForeign,
                "is none that the studio wrote and may name other files to be deleted; neither was "
                "touched. Without it the file can be opened"},
};

constexpr std::array kSqliteCauses{
    SqliteCause{SQLITE_READONLY_DBMOVED,
                "the file was moved, replaced or deleted meanwhile; choose it again"},
    SqliteCause{SQLITE_CANTOPEN_SYMLINK, "it is a symbolic link; choose the file that it leads to"},
    SqliteCause{SQLITE_CORRUPT, "the file is damaged"},
    SqliteCause{SQLITE_NOTADB, "the file is damaged or of another kind"},
    SqliteCause{SQLITE_FULL, "the disk is full; it is as it was"},
    SqliteCause{SQLITE_READONLY_ROLLBACK,
                "a change that was cut off has to be taken back first, and it may only be read"},
    SqliteCause{SQLITE_BUSY, "another program is changing it; try again in a moment"},
    SqliteCause{SQLITE_READONLY, "it may only be read"},
    SqliteCause{SQLITE_IOERR, "the disk or the network folder failed; it is as it was"},
    SqliteCause{SQLITE_CANTOPEN, "the file, or its folder for a change, cannot be opened"},
    SqliteCause{SQLITE_TOOBIG, "an entry is larger than 16 MB"},
};

std::string PathOf(sqlite3* handle)
{
    const char* path = sqlite3_db_filename(handle, "main");
    return path == nullptr ? "" : path;
}

std::string SqliteCauseOf(sqlite3* handle)
{
    const int code = sqlite3_extended_errcode(handle);
    for (const SqliteCause& cause : kJournalCauses) {
        if (cause.code == code) {
            return "the journal beside it, '" + PathOf(handle) + "-journal', " + cause.text;
        }
    }
    for (const SqliteCause& cause : kSqliteCauses) {
        if (cause.code == code || cause.code == (code & 0xFF)) {
            return cause.text;
        }
    }
    return sqlite3_errmsg(handle);
}

[[noreturn]] void FailWith(sqlite3* handle)
{
    ThrowDatabaseError(PathOf(handle), SqliteCauseOf(handle));
}

void ExpectOk(sqlite3_stmt* statement, int code)
{
    if (code != SQLITE_OK) {
        FailWith(sqlite3_db_handle(statement));
    }
}

void ResetStatement(sqlite3_stmt* statement)
{
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
}

void FinalizeStatement(sqlite3_stmt* statement)
{
    sqlite3_finalize(statement);
}

void CloseConnection(sqlite3* handle)
{
    sqlite3_close_v2(handle);
}

sqlite3* OpenedConnection(const std::string& path, Database::Mode mode)
{
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                      (mode == Database::Mode::New ? SQLITE_OPEN_CREATE : 0);
    sqlite3* handle = nullptr;
    if (sqlite3_open_v2(path.c_str(), &handle, flags, DatabaseVfs()) != SQLITE_OK) {
        const std::string tooLong = LengthCause(path);
        const std::string cause = tooLong.empty() ? SqliteCauseOf(handle) : tooLong;
        CloseConnection(handle);
        ThrowDatabaseError(path, cause);
    }
    return handle;
}

// Shorter pauses than SQLite's own: between the changes of a busy writer there is little time.
int WaitForOthers(void*, int pauses)
{
    std::this_thread::sleep_for(kPause);
    return pauses * kPause < kMostWait ? 1 : 0;
}

void Disarm(sqlite3* handle)
{
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kMostValueBytes);
    // One, which VACUUM takes for its copy.
    sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 1);
    sqlite3_busy_handler(handle, WaitForOthers, nullptr);
}

Statement::Handle CompiledStatement(sqlite3* handle, std::string_view sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle, sql.data(), static_cast<int>(sql.size()), &statement, nullptr) !=
        SQLITE_OK) {
        FailWith(handle);
    }
    return {statement, FinalizeStatement};
}

std::string_view StoredBytes(const void* bytes, int count)
{
    return bytes == nullptr
               ? std::string_view()
               : std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
}

}  // namespace

std::string LengthCause(const std::string& path)
{
    constexpr std::size_t kMostPath = 496;  // SQLite's 512, less what is put before and behind it
    constexpr std::size_t kMostName = 247;  // the system's 255, less the same
    if (path.size() > kMostPath) {
        return "its path is too long: more than " + std::to_string(kMostPath) + " bytes";
    }
    return path.size() - (path.rfind('/') + 1) > kMostName
               ? "its name is too long: more than " + std::to_string(kMostName) + " bytes"
               : "";
}

Statement& Statement::Bind(int parameter, std::int64_t value)
{
    ExpectOk(m_handle.get(), sqlite3_bind_int64(m_handle.get(), parameter, value));
    return *this;
}

Statement& Statement::Bind(int parameter, std::string_view text)
{
    // A null pointer would be bound as NULL, even with a length.
    const char* bytes = text.data() == nullptr ? "" : text.data();
    ExpectOk(m_handle.get(), sqlite3_bind_text64(m_handle.get(), parameter, bytes, text.size(),
                                                 SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement& Statement::BindBlob(int parameter, std::string_view bytes)
{
    ExpectOk(m_handle.get(), sqlite3_bind_blob64(m_handle.get(), parameter, bytes.data(),
                                                 bytes.size(), SQLITE_TRANSIENT));
    return *this;
}

bool Statement::Step()
{
    const int code = sqlite3_step(m_handle.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        FailWith(sqlite3_db_handle(m_handle.get()));
    }
    return code == SQLITE_ROW;
}

void Statement::Run()
{
    while (Step()) {
    }
}

std::int64_t Statement::Integer(int column) const
{
    const bool fits = sqlite3_column_type(m_handle.get(), column) == SQLITE_INTEGER;
    return fits ? sqlite3_column_int64(m_handle.get(), column) : 0;
}

std::string_view Statement::Text(int column) const
{
    if (sqlite3_column_type(m_handle.get(), column) != SQLITE_TEXT) {
        return {};
    }
    const unsigned char* text = sqlite3_column_text(m_handle.get(), column);
    return StoredBytes(text, sqlite3_column_bytes(m_handle.get(), column));
}

std::string_view Statement::Blob(int column) const
{
    if (sqlite3_column_type(m_handle.get(), column) != SQLITE_BLOB) {
        return {};
    }
    const void* bytes = sqlite3_column_blob(m_handle.get(), column);
    return StoredBytes(bytes, sqlite3_column_bytes(m_handle.get(), column));
}

Database::Database(const std::string& path, Mode mode)
    : m_path(path), m_handle(OpenedConnection(path, mode), CloseConnection)
{
    Disarm(m_handle.get());
    Run("PRAGMA cell_size_check = ON");
    Run("PRAGMA temp_store = MEMORY");
    // A committed change outlives a power cut too, its folder entry included.
    Run("PRAGMA synchronous = EXTRA");
}

bool Database::IsReadOnly() const
{
    return sqlite3_db_readonly(m_handle.get(), "main") != 0;
}

Statement Database::Use(const char* sql)
{
    const auto [place, isNew] = m_compiled.try_emplace(sql, nullptr, FinalizeStatement);
    if (isNew || place->second == nullptr) {
        place->second = CompiledStatement(m_handle.get(), sql);
    }
    return Statement({place->second.get(), ResetStatement});
}

Statement Database::Compile(const std::string& sql)
{
    return Statement(CompiledStatement(m_handle.get(), sql));
}

std::int64_t Database::Integer(const char* sql)
{
    Statement statement = Use(sql);
    return statement.Step() ? statement.Integer(0) : 0;
}

std::int64_t Database::LastId() const
{
    return sqlite3_last_insert_rowid(m_handle.get());
}

void Database::RemoveIdleJournal()
{
    std::error_code ignored;
    const std::filesystem::path journal = m_path + "-journal";
    if (!std::filesystem::is_regular_file(journal, ignored)) {
        return;
    }
    sqlite3* const handle = m_handle.get();
    sqlite3_busy_handler(handle, nullptr, nullptr);
    // Else it is his who changes the library now.
    if (sqlite3_exec(handle, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK) {
        std::filesystem::remove(journal, ignored);
        sqlite3_exec(handle, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    sqlite3_busy_handler(handle, WaitForOthers, nullptr);
}

std::string Database::Bytes() const
{
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, void (*)(void*)> bytes(
        sqlite3_serialize(m_handle.get(), "main", &size, 0), sqlite3_free);
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    return {bytes.get(), bytes.get() + size};
}

void Database::ReadFile(const std::function<bool(std::span<const char>)>& take) const
{
    constexpr sqlite3_int64 kPiece = 1 << 20;
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (file->pMethods->xFileSize(file, &size) != SQLITE_OK) {
        ThrowDatabaseError(m_path, "it cannot be read");
    }
    std::vector<char> piece;
    for (sqlite3_int64 at = 0; at < size; at += kPiece) {
        piece.resize(static_cast<std::size_t>(std::min(kPiece, size - at)));
        if (file->pMethods->xRead(file, piece.data(), static_cast<int>(piece.size()), at) !=
            SQLITE_OK) {
            ThrowDatabaseError(m_path, "it cannot be read");
        }
        if (!take(piece)) {
            return;
        }
    }
}

Transaction::Transaction(Database& database, Purpose purpose) : m_database(database)
{
    m_database.Run(purpose == Purpose::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction()
{
    // SQLite itself has ended it after a commit and after some failures, such as a full disk.
    if (sqlite3_get_autocommit(m_database.Handle()) == 0) {
        sqlite3_exec(m_database.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::Commit()
{
    m_database.Run("COMMIT");
}

Interruption::Interruption(Database& database, std::stop_token stop)
    : m_database(database), m_stop(std::move(stop))
{
    constexpr int kInstructions = 10;  // of SQLite's machine
    sqlite3_progress_handler(
        m_database.Handle(), kInstructions,
        [](void* token) { return static_cast<std::stop_token*>(token)->stop_requested() ? 1 : 0; },
        &m_stop);
}

Interruption::~Interruption()
{
    sqlite3_progress_handler(m_database.Handle(), 0, nullptr, nullptr);
}

}  // namespace studio
