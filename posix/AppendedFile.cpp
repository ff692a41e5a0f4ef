#include "AppendedFile.h"

#include <CorvexMaterial/Status.h>

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

[[noreturn]] void RefuseToAppend(const std::string& path, int reason)
{
    throw Error(Status::FileFailed,
                path + " cannot be written: " + std::generic_category().message(reason));
}

/// 0, or why not all of it was written.
int WriteAll(int file, std::span<const char> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        bytes = bytes.subspan(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return ::fdatasync(file) == 0 || errno == EINVAL ? 0 : errno;
}

}  // namespace

AppendedFile::AppendedFile(const std::string& path)
    : m_path(path), m_file(::open(path.c_str(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_CLOEXEC))
{
    if (m_file < 0) {
        RefuseToAppend(m_path, errno);
    }
}

AppendedFile::~AppendedFile()
{
    ::close(m_file);
}

void AppendedFile::Append(std::span<const char> bytes)
{
    struct stat before {};
    int reason = ::fstat(m_file, &before) == 0 ? 0 : errno;
    // Whoever removed it wants nothing more in it.
    reason = reason == 0 && before.st_nlink == 0 ? ENOENT : reason;
    if (reason == 0) {
        reason = WriteAll(m_file, bytes);
        if (reason != 0) {
            static_cast<void>(::ftruncate(m_file, before.st_size));
        }
    }
    if (reason != 0) {
        RefuseToAppend(m_path, reason);
    }
}

std::string StrangerCause(const std::string& path)
{
    struct stat found {};
    if (::lstat(path.c_str(), &found) != 0) {
        return std::generic_category().message(errno);
    }
    if (!S_ISREG(found.st_mode) || found.st_nlink != 1) {
        return "it is no ordinary file";
    }
    return found.st_uid == ::geteuid() ? "" : "it is another user's";
}

}  // namespace CorvexMaterial
