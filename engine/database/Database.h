#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace studio {

/// A statement while it is being used. Parameters count from 1, columns from 0. Every failure is an
/// Error with status FileFailed that names the file. Not to outlive its database.
class Statement {
public:
    using Handle = std::unique_ptr<sqlite3_stmt, void (*)(sqlite3_stmt*)>;

    explicit Statement(Handle handle) : m_handle(std::move(handle)) {}

    Statement& Bind(int parameter, std::int64_t value);
    Statement& Bind(int parameter, std::string_view text);
    Statement& BindBlob(int parameter, std::string_view bytes);

    /// Whether there is a (further) row.
    [[nodiscard]] bool Step();
    /// Steps to the end.
    void Run();

    /// 0 and empty where the column holds something else: a file from elsewhere may hold anything.
    [[nodiscard]] std::int64_t Integer(int column) const;
    /// As stored, which may not be valid UTF-8; until the next step.
    [[nodiscard]] std::string_view Text(int column) const;
    [[nodiscard]] std::string_view Blob(int column) const;

private:
    Handle m_handle;
};

/// A connection to one SQLite file that may come from anywhere: views, triggers and everything else
/// that runs by itself is off, and sizes are bounded. One thread at a time.
class Database {
public:
    enum class Mode { Existing, New };

    /// Falls back to reading where writing is not allowed.
    Database(const std::string& path, Mode mode);

    [[nodiscard]] const std::string& Path() const { return m_path; }
    [[nodiscard]] bool IsReadOnly() const;

    /// The text is compiled once and kept, so it has to be a literal.
    [[nodiscard]] Statement Use(const char* sql);
    [[nodiscard]] Statement Compile(const std::string& sql);
    void Run(const char* sql) { Use(sql).Run(); }
    [[nodiscard]] std::int64_t Integer(const char* sql);
    [[nodiscard]] std::int64_t LastId() const;
    /// The one that a change leaves which is cut off before it touches the file: SQLite ignores it.
    void RemoveIdleJournal();
    /// What a file of it holds.
    [[nodiscard]] std::string Bytes() const;
    /// Its file as it is on the disk, until a piece is not wanted. In a transaction that writes and
    /// has not written yet, so that nobody changes it meanwhile. To open the file for it would end
    /// this program's locks.
    void ReadFile(const std::function<bool(std::span<const char>)>& take) const;
    [[nodiscard]] sqlite3* Handle() const { return m_handle.get(); }

private:
    using Connection = std::unique_ptr<sqlite3, void (*)(sqlite3*)>;

    std::string m_path;
    Connection m_handle;
    std::unordered_map<const char*, Statement::Handle> m_compiled;
};

/// Why a file of this name cannot be written to, as there is no room for its journal's; empty if it
/// can.
[[nodiscard]] std::string LengthCause(const std::string& path);

/// All or nothing: undone unless it is committed.
class Transaction {
public:
    enum class Purpose { Read, Write };

    Transaction(Database& database, Purpose purpose);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    Database& m_database;
};

/// As long as it lives, the database's statements fail once they are to stop.
class Interruption {
public:
    Interruption(Database& database, std::stop_token stop);
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

private:
    Database& m_database;
    std::stop_token m_stop;
};

}  // namespace studio
