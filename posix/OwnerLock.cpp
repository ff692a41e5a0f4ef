#include "OwnerLock.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

/// Whoever held the lock a moment ago may have removed the file.
bool LocksNamedFile(int file)
{
    struct stat found {};
    return ::flock(file, LOCK_EX | LOCK_NB) == 0 && ::fstat(file, &found) == 0 &&
           S_ISREG(found.st_mode) && found.st_uid == ::geteuid() && found.st_nlink == 1;
}

}  // namespace

OwnerLock OwnerLock::Make(const std::string& path)
{
    const int file = ::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0 && !LocksNamedFile(file)) {
        ::close(file);
        errno = EEXIST;
        return {};
    }
    return {path, file};
}

OwnerLock OwnerLock::TakeOver(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file >= 0 && !LocksNamedFile(file)) {
        ::close(file);
        return {};
    }
    return {path, file};
}

OwnerLock::OwnerLock(OwnerLock&& other) noexcept
    : m_path(std::move(other.m_path)), m_file(std::exchange(other.m_file, -1))
{
}

OwnerLock& OwnerLock::operator=(OwnerLock&& other) noexcept
{
    std::swap(m_path, other.m_path);
    std::swap(m_file, other.m_file);
    return *this;
}

OwnerLock::~OwnerLock()
{
    if (m_file >= 0) {
        ::unlink(m_path.c_str());
        ::close(m_file);
    }
}

}  // namespace CorvexMaterial
