#include "FileWriting.h"

#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <utility>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

namespace fs = std::filesystem;

/// After which it is asked whether to go on.
constexpr std::size_t kPiece = std::size_t{8} << 20;
constexpr int kMostTries = 500;
constexpr unsigned kTryMicroseconds = 1000;
constexpr int kMostLinks = 40;  // as the system itself follows
constexpr mode_t kPermissions = 0777;
constexpr mode_t kNewFile = 0666;  // less what the user's mask takes
constexpr mode_t kOwnFile = 0600;

[[noreturn]] void Refuse(const std::string& path, const char* what, int reason)
{
    throw Error(Status::FileFailed,
                path + ' ' + what + ": " + std::generic_category().message(reason));
}

/// Links there name a file that is open, a pipe or a terminal perhaps, and can be written through
/// only.
bool IsAmongProcesses(const fs::path& folder)
{
    struct statfs system {};
    return ::statfs(folder.c_str(), &system) == 0 && system.f_type == PROC_SUPER_MAGIC;
}

/// Where the links lead, be it a file that is not there yet. 0, or why they cannot be followed.
int FollowLinks(fs::path& path)
{
    std::error_code ignored;
    for (int links = 0; fs::is_symlink(path, ignored); ++links) {
        std::error_code error;
        const fs::path next = fs::read_symlink(path, error);
        if (error || links == kMostLinks) {
            return error ? error.value() : ELOOP;
        }
        if (IsAmongProcesses(path.parent_path())) {
            break;
        }
        path = path.parent_path() / next;
    }
    return 0;
}

std::string NewName(const std::string& target)
{
    std::uint64_t number = 0;
    if (::getrandom(&number, sizeof number, 0) != sizeof number) {
        number = static_cast<std::uint64_t>(::getpid());
    }
    const std::string name = ".corvex-" + std::to_string(number);
    return (fs::path(target).parent_path() / name).string();
}

/// Of the file for the moment before it takes the target's name; always the same.
std::string BesideName(const std::string& target)
{
    const fs::path path(target);
    const auto number = std::hash<std::string>{}(path.filename().string());
    return (path.parent_path() / (".corvex-" + std::to_string(number))).string();
}

}  // namespace

void ThrowIfStopped(const std::stop_token& stop)
{
    if (stop.stop_requested()) {
        throw Error(Status::Failed, "It was stopped.");
    }
}

FileWriter::FileWriter(std::string path, Lifetime lifetime, Existing existing, std::stop_token stop)
    : m_path(std::move(path)), m_lifetime(lifetime), m_existing(existing), m_stop(std::move(stop))
{
    if (m_path.empty() || m_path.find('\0') != std::string::npos) {
        Fail(ENOENT);
    }
    // Absolute: whoever has a file written piece by piece may go to another folder meanwhile.
    std::error_code error;
    fs::path target = fs::absolute(m_path, error);
    if (const int reason = lifetime == Lifetime::Lasting ? FollowLinks(target) : 0; reason != 0) {
        Fail(reason);
    }
    m_target = target.string();
    struct stat there {};
    const bool exists = ::lstat(m_target.c_str(), &there) == 0;
    if (exists && existing == Existing::Kept) {
        Fail(EEXIST);
    }
    const bool isLink = exists && S_ISLNK(there.st_mode);
    m_straight = isLink ? lifetime == Lifetime::Lasting : exists && !S_ISREG(there.st_mode);
    if (m_straight) {
        OpenStraight();
        return;
    }
    const bool replaces = exists && !isLink;
    error = replaces ? WriteRefusal(m_target) : std::error_code();
    if (error) {
        Fail(error.value());
    }
    const bool isPrivate = replaces || lifetime == Lifetime::Temporary;
    OpenBeside(isPrivate ? kOwnFile : kNewFile);
    if (replaces) {
        // A file system without permissions refuses, which is no reason not to write there.
        static_cast<void>(::fchmod(m_file, there.st_mode & kPermissions));
    }
}

FileWriter::~FileWriter()
{
    if (m_file >= 0) {
        ::close(m_file);
    }
    if (!m_beside.empty()) {
        ::unlink(m_beside.c_str());
    }
}

/// Without waiting for somebody to read from a pipe.
void FileWriter::OpenStraight()
{
    m_file = ::open(m_target.c_str(), O_WRONLY | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (m_file < 0 || ::fcntl(m_file, F_SETFL, O_APPEND) != 0) {
        Fail(errno);
    }
}

/// Without a name, where the file system can do that: then nothing is left of a program that is
/// killed.
void FileWriter::OpenBeside(unsigned mode)
{
    const std::string folder = fs::path(m_target).parent_path().string();
    m_file = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    bool tryNames = m_file < 0 && (errno == EOPNOTSUPP || errno == EISDIR);
    while (tryNames) {
        const std::string name = NewName(m_target);
        m_file = ::open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
        m_beside = m_file >= 0 ? name : std::string();
        tryNames = m_file < 0 && errno == EEXIST;
    }
    if (m_file < 0) {
        Fail(errno);
    }
}

void FileWriter::Write(std::span<const char> bytes)
{
    while (!bytes.empty()) {
        ThrowIfStopped(m_stop);
        const ssize_t written = ::write(m_file, bytes.data(), std::min(bytes.size(), kPiece));
        if (written < 0 && errno != EINTR) {
            Fail(errno);
        }
        bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
}

void FileWriter::Sync()
{
    const bool isDue = !m_isSynced && !m_straight && m_lifetime == Lifetime::Lasting;
    if (isDue && ::fsync(m_file) != 0) {
        Fail(errno);
    }
    m_isSynced = true;
}

void FileWriter::Finish()
{
    Sync();
    if (m_straight) {
        Close();
        return;
    }
    const bool isNamed = IsNamedAtOnce();
    if (!isNamed) {
        NameBeside();
    }
    Close();
    if (!isNamed && TakeName() != 0) {
        Fail(errno);
    }
    m_beside.clear();
    if (m_lifetime == Lifetime::Lasting) {
        SyncFolder();
    }
}

int FileWriter::LinkAs(const std::string& name) const
{
    const std::string open = "/proc/self/fd/" + std::to_string(m_file);
    return ::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW);
}

/// Where no file has the name yet.
bool FileWriter::IsNamedAtOnce() const
{
    const bool isNamed = m_beside.empty() && LinkAs(m_target) == 0;
    if (m_beside.empty() && !isNamed && (errno != EEXIST || m_existing == Existing::Kept)) {
        Fail(errno);
    }
    return isNamed;
}

void FileWriter::NameBeside()
{
    std::string name = BesideName(m_target);
    // One that stays is of a program that was killed then, or somebody else's, who keeps the name.
    for (int tries = 0; m_beside.empty(); ++tries) {
        if (LinkAs(name) == 0) {
            m_beside = name;
        } else if (errno != EEXIST) {
            Fail(errno);
        } else if (tries < kMostTries) {
            ::usleep(kTryMicroseconds);
        } else if (::unlink(name.c_str()) != 0 && errno != ENOENT) {
            name = NewName(m_target);
        }
    }
}

/// Somebody may have made the file meanwhile.
int FileWriter::TakeName() const
{
    if (m_existing == Existing::Replaced) {
        return ::rename(m_beside.c_str(), m_target.c_str());
    }
    const int code =
        ::renameat2(AT_FDCWD, m_beside.c_str(), AT_FDCWD, m_target.c_str(), RENAME_NOREPLACE);
    // Not every file system can; the others have links.
    const bool byLink = code != 0 && (errno == EINVAL || errno == ENOSYS) &&
                        ::link(m_beside.c_str(), m_target.c_str()) == 0;
    return byLink ? ::unlink(m_beside.c_str()) : code;
}

void FileWriter::Close()
{
    // Closed it is in any case.
    if (::close(std::exchange(m_file, -1)) != 0 && errno != EINTR) {
        Fail(errno);
    }
}

/// A folder that may not be read, or a file system that cannot do it, keeps nobody from writing.
void FileWriter::SyncFolder() const
{
    const std::string name = fs::path(m_target).parent_path().string();
    const int folder = ::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) {
        return;
    }
    const int reason = ::fsync(folder) == 0 || errno == EINVAL ? 0 : errno;
    ::close(folder);
    if (reason != 0) {
        Fail(reason);
    }
}

void FileWriter::Fail(int reason) const
{
    Refuse(m_path, "cannot be written", reason);
}

void RemoveLeftover(const std::string& path)
{
    ::unlink(BesideName(path).c_str());
}

void WriteFile(const std::string& path, std::span<const char> bytes, Lifetime lifetime,
               Existing existing)
{
    FileWriter file(path, lifetime, existing);
    file.Write(bytes);
    file.Finish();
}

std::error_code WriteRefusal(const std::string& path)
{
    const bool may = ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
    return may ? std::error_code() : std::error_code(errno, std::generic_category());
}

void MakeFolder(const std::string& path)
{
    std::error_code error;
    fs::create_directories(path, error);
    if (error) {
        Refuse(path, "cannot be made", error.value());
    }
}

}  // namespace CorvexMaterial
