#include "DatabaseVfs.h"

#include "FileClaim.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace studio {
namespace {

using Bytes8 = std::array<unsigned char, 8>;

constexpr std::string_view kJournalSuffix = "-journal";
constexpr Bytes8 kJournalMagic{0xd9, 0xd5, 0x05, 0xf9, 0x20, 0xa1, 0x63, 0xd7};

sqlite3_vfs* SystemVfs()
{
    return sqlite3_vfs_find("unix");
}

bool IsJournalName(const char* name)
{
    return std::string_view(name).ends_with(kJournalSuffix);
}

/// Whoever may not write to the file has begun no change of it: his journal is a trap.
bool IsStrangersJournal(const char* name)
{
    const std::string_view journal = name;
    const std::string file(journal.substr(0, journal.size() - kJournalSuffix.size()));
    return !CorvexMaterial::OwnerMayWrite(name, file);
}

// Before it is opened, since to open a pipe is to wait for its other end.
int KindRefusal(const char* name, bool isJournal)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status found = fs::symlink_status(name, error);
    if (error || !fs::exists(found)) {
        return SQLITE_OK;
    }
    const bool isFile = fs::is_regular_file(found);
    // What has a second name is also somebody else's file.
    if (isJournal) {
        const bool isPlain = isFile && fs::hard_link_count(name, error) == 1;
        return isPlain && !IsStrangersJournal(name) ? SQLITE_OK : kJournalIsNoFile;
    }
    return isFile ? SQLITE_OK : SQLITE_CANTOPEN_SYMLINK;
}

// A journal begins with the magic bytes, or with a zero once it no longer counts. If they are its
// end too, the name of another journal stands before them; no change of a library writes one.
int ContentRefusal(sqlite3_file& journal)
{
    sqlite3_int64 size = 0;
    Bytes8 first{};
    Bytes8 last{};
    if (const int code = journal.pMethods->xFileSize(&journal, &size); code != SQLITE_OK) {
        return code;
    }
    constexpr auto kWord = static_cast<int>(sizeof(Bytes8));
    if (size < kWord) {
        return SQLITE_OK;
    }
    if (const int code = journal.pMethods->xRead(&journal, first.data(), kWord, 0);
        code != SQLITE_OK) {
        return code;
    }
    if (const int code = journal.pMethods->xRead(&journal, last.data(), kWord, size - kWord);
        code != SQLITE_OK) {
        return code;
    }
    const bool isOurs = first[0] == 0 || (first == kJournalMagic && last != kJournalMagic);
    return isOurs ? SQLITE_OK : kJournalIsForeign;
}

int OpenJournal(const char* name, sqlite3_file* file, int flags, int* openedAs)
{
    if (const int code = SystemVfs()->xOpen(SystemVfs(), name, file, flags, openedAs);
        code != SQLITE_OK) {
        return code;
    }
    const int refusal = ContentRefusal(*file);
    if (refusal != SQLITE_OK) {
        file->pMethods->xClose(file);
        file->pMethods = nullptr;
    }
    return refusal;
}

int OpenMain(const char* name, sqlite3_file* file, int flags, int* openedAs)
{
    const int code = SystemVfs()->xOpen(SystemVfs(), name, file, flags, openedAs);
    if (code == SQLITE_OK) {
        // Methods of the first version have no shared memory, without which there is no log.
        static const sqlite3_io_methods withoutLog = [](sqlite3_io_methods methods) {
            methods.iVersion = 1;
            return methods;
        }(*file->pMethods);
        file->pMethods = &withoutLog;
    }
    return code;
}

int OpenGuarded(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* openedAs)
{
    file->pMethods = nullptr;
    if (name == nullptr) {
        return SystemVfs()->xOpen(SystemVfs(), name, file, flags, openedAs);
    }
    const bool isJournal = (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    if (!isJournal && (flags & SQLITE_OPEN_MAIN_DB) == 0) {
        return SQLITE_CANTOPEN;
    }
    if (const int refusal = KindRefusal(name, isJournal); refusal != SQLITE_OK) {
        return refusal;
    }
    return isJournal ? OpenJournal(name, file, flags, openedAs)
                     : OpenMain(name, file, flags, openedAs);
}

int DeleteJournal(sqlite3_vfs*, const char* name, int syncFolder)
{
    return IsJournalName(name) ? SystemVfs()->xDelete(SystemVfs(), name, syncFolder)
                               : SQLITE_IOERR_DELETE;
}

int AskForJournal(sqlite3_vfs*, const char* name, int what, int* answer)
{
    *answer = 0;
    return IsJournalName(name) && !IsStrangersJournal(name)
               ? SystemVfs()->xAccess(SystemVfs(), name, what, answer)
               : SQLITE_OK;
}

// The system's own would follow symbolic links.
int PathAsItIs(sqlite3_vfs*, const char* name, int room, char* path)
{
    return std::snprintf(path, static_cast<std::size_t>(room), "%s", name) < room
               ? SQLITE_OK
               : SQLITE_CANTOPEN_FULLPATH;
}

}  // namespace

const char* DatabaseVfs()
{
    static sqlite3_vfs vfs = [] {
        sqlite3_initialize();
        sqlite3_vfs cut = *SystemVfs();
        cut.zName = "corvex-guarded";
        cut.pNext = nullptr;
        cut.xOpen = OpenGuarded;
        cut.xDelete = DeleteJournal;
        cut.xAccess = AskForJournal;
        cut.xFullPathname = PathAsItIs;
        return cut;
    }();
    static const int registered = sqlite3_vfs_register(&vfs, 0);
    static_cast<void>(registered);  // nothing can be opened by the name if it is not
    return vfs.zName;
}

}  // namespace studio
