#pragma once

#include <string>

namespace studio {

class Database;

/// A copy of a library beside it, for the moment before its format changes.
class LibraryBackup {
public:
    /// `NAME.v1-backup`, or with a number where that is another file; an equal one that is there is
    /// taken for it. In a transaction that has not written yet. Errors: FileFailed, and there is no
    /// copy.
    explicit LibraryBackup(Database& database);
    /// Without `Keep` a copy that was made here goes again.
    ~LibraryBackup();
    LibraryBackup(const LibraryBackup&) = delete;
    LibraryBackup& operator=(const LibraryBackup&) = delete;

    void Keep() { m_isMade = false; }
    [[nodiscard]] const std::string& Path() const { return m_path; }

private:
    std::string m_path;
    bool m_isMade = false;
};

}  // namespace studio
