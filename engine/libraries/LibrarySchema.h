#pragma once

#include <cstdint>
#include <string>

namespace studio {

class Database;

enum class LibraryKind : std::int32_t { Materials, Textures };

/// Format of the files; a file of a later one is refused.
inline constexpr std::int32_t kLibraryVersion = 1;

/// "cvm" or "cvt".
[[nodiscard]] const char* LibrarySuffix(LibraryKind kind);

/// The kind by the name's ending, in any case; materials for any other.
[[nodiscard]] LibraryKind LibraryKindOf(const std::string& path);

/// Refuses everything that does not begin like a library of this kind and version. Reads the first
/// bytes and nothing else: whatever the file is, it is not touched. Errors: FileFailed.
void CheckLibraryHeader(const std::string& path, LibraryKind kind);

/// Puts the tables into a new database.
void MakeLibraryTables(Database& database, LibraryKind kind);

/// Refuses a database whose tables are not exactly ours. In a transaction. Errors: FileFailed.
void CheckLibraryTables(Database& database);

}  // namespace studio
