#pragma once

namespace studio {

/// Codes that SQLite hands through from what is refused here.
inline constexpr int kJournalIsNoFile = 14 | (100 << 8);  ///< SQLITE_CANTOPEN and our own reason
inline constexpr int kJournalIsForeign = 14 | (101 << 8);

/// The name of SQLite's own access to files, cut down to what a library needs. What stands in a
/// library or its journal can come from anywhere; this opens, writes and deletes the library and
/// its `-journal` and nothing else, and only if they are plain files. Hence no write-ahead log, no
/// journal that names a second one (SQLite would delete the file of that name), no symbolic link.
/// Only SQLite's own nameless temporary files are free.
[[nodiscard]] const char* DatabaseVfs();

}  // namespace studio
