#include "RegularFile.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

struct KindText {
    mode_t kind;
    const char* text;
};

constexpr std::array kOtherKinds{
    KindText{S_IFDIR, "it is a folder"},
    KindText{S_IFIFO, "it is a pipe, not a file"},
    KindText{S_IFCHR, "it is a device, not a file"},
    KindText{S_IFBLK, "it is a device, not a file"},
    KindText{S_IFSOCK, "it is a socket, not a file"},
};

std::string SystemText(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return "there is no such file";
    case EACCES:
        return "you have no right to read it";
    case ELOOP:
        return "its symbolic links go round in a circle";
    default:
        return "it cannot be read: " + std::generic_category().message(error);
    }
}

std::string ObstacleIn(const struct stat& found, std::int64_t mostBytes)
{
    for (const KindText& other : kOtherKinds) {
        if ((found.st_mode & S_IFMT) == other.kind) {
            return other.text;
        }
    }
    return found.st_size > mostBytes ? TooLongText(mostBytes) : std::string();
}

}  // namespace

std::string TooLongText(std::int64_t mostBytes)
{
    return "it is larger than " + std::to_string(mostBytes >> 20) + " MB, the most that is read";
}

RegularFile::RegularFile(const std::string& path, std::int64_t mostBytes)
{
    // The system would read a name up to its first zero only.
    if (path.find('\0') == std::string::npos) {
        Open(path.c_str(), mostBytes);
    } else {
        m_obstacle = SystemText(ENOENT);
        m_isMissing = true;
    }
    if (!m_obstacle.empty() && m_descriptor >= 0) {
        ::close(Release());
    }
}

RegularFile::~RegularFile()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

// Looked at before it is opened, since to open a device may already do something; and after, for it
// may have become another meanwhile.
void RegularFile::Open(const char* path, std::int64_t mostBytes)
{
    struct stat found {};
    bool isFound = ::stat(path, &found) == 0;
    if (isFound) {
        m_obstacle = ObstacleIn(found, mostBytes);
        if (!m_obstacle.empty()) {
            return;
        }
        m_descriptor = ::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        isFound = m_descriptor >= 0 && ::fstat(m_descriptor, &found) == 0;
    }
    m_isMissing = !isFound && (errno == ENOENT || errno == ENOTDIR);
    m_obstacle = isFound ? ObstacleIn(found, mostBytes) : SystemText(errno);
    m_size = found.st_size;
}

std::string RegularFile::Content() const
{
    std::string content(static_cast<std::size_t>(m_size), '\0');
    std::size_t filled = 0;
    ssize_t got = 1;
    while (got > 0 && filled < content.size()) {
        got = ::read(m_descriptor, content.data() + filled, content.size() - filled);
        filled += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    content.resize(filled);
    return content;
}

int RegularFile::Release()
{
    return std::exchange(m_descriptor, -1);
}

}  // namespace CorvexMaterial
