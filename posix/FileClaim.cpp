#include "FileClaim.h"

#include <CorvexMaterial/Status.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

constexpr mode_t kAccessBits = 0777;

/// 0, or why it could not be synced; a file system that cannot do it keeps nobody from writing.
int Sync(const std::string& path, int flags)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | flags);
    if (file < 0) {
        return errno;
    }
    const int reason = ::fsync(file) == 0 || errno == EINVAL ? 0 : errno;
    ::close(file);
    return reason;
}

}  // namespace

FileClaim::FileClaim(const std::string& path)
    : m_file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
{
    m_held = m_file >= 0 && (::flock(m_file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK);
}

FileClaim::FileClaim(FileClaim&& other) noexcept
    : m_file(std::exchange(other.m_file, -1)), m_held(std::exchange(other.m_held, false))
{
}

FileClaim& FileClaim::operator=(FileClaim&& other) noexcept
{
    std::swap(m_file, other.m_file);
    std::swap(m_held, other.m_held);
    return *this;
}

FileClaim::~FileClaim()
{
    if (m_file >= 0) {
        ::close(m_file);
    }
}

std::string FileIdentity(const std::string& path)
{
    struct stat found {};
    if (::stat(path.c_str(), &found) != 0) {
        return {};
    }
    std::string identity;
    for (const auto number :
         {static_cast<long long>(found.st_dev), static_cast<long long>(found.st_ino),
          static_cast<long long>(found.st_size), static_cast<long long>(found.st_mtim.tv_sec),
          static_cast<long long>(found.st_mtim.tv_nsec)}) {
        identity += std::to_string(number) + ' ';
    }
    return identity;
}

bool OwnerMayWrite(const std::string& owned, const std::string& file)
{
    struct stat one {};
    struct stat other {};
    return ::lstat(owned.c_str(), &one) != 0 || ::stat(file.c_str(), &other) != 0 ||
           one.st_uid == 0 || one.st_uid == ::geteuid() || one.st_uid == other.st_uid ||
           (other.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

void MoveInPlace(const std::string& file, const std::string& target)
{
    struct stat there {};
    if (::stat(target.c_str(), &there) == 0) {
        // A file system without permissions refuses, which is no reason not to write there.
        static_cast<void>(::chmod(file.c_str(), there.st_mode & kAccessBits));
    }
    int reason = Sync(file, 0);
    if (reason == 0 && ::rename(file.c_str(), target.c_str()) != 0) {
        reason = errno;
    }
    if (reason != 0) {
        throw Error(Status::FileFailed,
                    target + " cannot be written: " + std::generic_category().message(reason));
    }
    // A folder that may not be read keeps nobody from writing.
    static_cast<void>(Sync(std::filesystem::path(target).parent_path().string(), O_DIRECTORY));
}

}  // namespace CorvexMaterial
