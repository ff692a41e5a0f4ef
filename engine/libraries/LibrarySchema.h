#pragma once

#include <cstdint>
#include <string>

namespace studio {

class Database;

enum class LibraryKind : std::int32_t { Materials, Textures };

/// Format of the files; a file of a later one is refused. One of the first is read as it is, and
/// gets this one with its first change.
inline constexpr std::int32_t kLibraryVersion = 2;
/// The first one with authors, licences, sources, tags and collections.
inline constexpr std::int64_t kFormatWithDetails = 2;

/// "cvm" or "cvt".
[[nodiscard]] const char* LibrarySuffix(LibraryKind kind);

/// The kind by the name's ending, in any case; materials for any other.
[[nodiscard]] LibraryKind LibraryKindOf(const std::string& path);

/// Refuses everything that does not begin like a library of this kind and version. Reads the first
/// bytes and nothing else: whatever the file is, it is not touched. Errors: FileFailed.
void CheckLibraryHeader(const std::string& path, LibraryKind kind);

/// Puts the tables into a new database.
void MakeLibraryTables(Database& database, LibraryKind kind);

[[nodiscard]] std::int64_t LibraryFormatOf(Database& database);
/// Gives one of the first format the tables that it has not. In a transaction.
void UpgradeLibraryTables(Database& database);

/// Refuses a database whose tables are not exactly those of its format. In a transaction. Errors:
/// FileFailed.
void CheckLibraryTables(Database& database);

}  // namespace studio
