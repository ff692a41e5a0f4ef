#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace studio {

class Database;

/// What tells the files of one kind from all others that SQLite wrote.
struct DatabaseKind {
    std::uint32_t applicationId;
    std::uint32_t version;  ///< of the format; a file of a later one is refused
    const char* name;       ///< for a person: "library"
    const char* applicationIdStatement;
    const char* versionStatement;
    std::span<const char* const> objects;  ///< the tables and indexes, letter by letter
};

/// Empty if the file begins like one of this kind and version, else why it is refused. Reads the
/// first bytes and nothing else: whatever the file is, it is not touched. Errors: FileFailed when
/// it cannot be read.
[[nodiscard]] std::string HeaderCause(const std::string& path, const DatabaseKind& kind);
/// What a file of SQLite says it is; 0 for any other. Errors: as above.
[[nodiscard]] std::uint32_t ApplicationIdOf(const std::string& path);

/// Puts the tables into a new database.
void MakeTables(Database& database, const DatabaseKind& kind);

/// Refuses a database whose tables are not exactly ours, or that is cut off. In a transaction.
/// Errors: FileFailed.
void CheckTables(Database& database, const DatabaseKind& kind);

/// Refuses a file that is shorter than it says. For one that could not be read: while another
/// program writes, a good one may look like this too. Errors: FileFailed.
void RefuseTruncated(const std::string& path);

}  // namespace studio
