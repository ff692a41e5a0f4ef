#include "FileCopy.h"

#include <CorvexMaterial/Status.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

class Descriptor {
public:
    explicit Descriptor(int file) : m_file(file) {}
    ~Descriptor()
    {
        if (m_file >= 0) {
            ::close(m_file);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int Get() const { return m_file; }

private:
    int m_file;
};

/// 0, or why not all of it was copied.
int Fill(int copy, int file)
{
    if (::ioctl(copy, FICLONE, file) == 0) {
        return 0;
    }
    constexpr std::size_t kPiece = std::size_t{1} << 30U;
    ssize_t sent = 0;
    do {
        sent = ::sendfile(copy, file, nullptr, kPiece);
    } while (sent > 0 || (sent < 0 && errno == EINTR));
    return sent == 0 ? 0 : errno;
}

}  // namespace

void CopyFile(const std::string& file, const std::string& copy)
{
    const std::string unfinished = copy + kUnfinishedCopy;
    const Descriptor from(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat found {};
    int reason = from.Get() >= 0 && ::fstat(from.Get(), &found) == 0 ? 0 : errno;
    if (reason == 0) {
        constexpr mode_t kPermissions = 0777;
        const Descriptor to(::open(unfinished.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC,
                                   (found.st_mode & kPermissions) | S_IRUSR | S_IWUSR));
        reason = to.Get() >= 0 ? Fill(to.Get(), from.Get()) : errno;
        if (reason == 0 && ::fsync(to.Get()) != 0) {
            reason = errno;
        }
    }
    if (reason == 0 && ::rename(unfinished.c_str(), copy.c_str()) != 0) {
        reason = errno;
    }
    if (reason != 0) {
        ::unlink(unfinished.c_str());
        throw Error(Status::FileFailed,
                    copy + " cannot be written: " + std::generic_category().message(reason));
    }
}

}  // namespace CorvexMaterial
