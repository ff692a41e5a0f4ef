#include "ShaderCache.h"

#include <cerrno>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace CorvexMaterial {
namespace {

std::string CacheFolder()
{
    if (const char* own = std::getenv("MESA_SHADER_CACHE_DIR")) {
        return own;
    }
    if (const char* caches = std::getenv("XDG_CACHE_HOME")) {
        return caches;
    }
    const char* home = std::getenv("HOME");
    return home == nullptr ? std::string() : std::string(home) + "/.cache";
}

bool HasRoomForNewIndex(std::string folder)
{
    constexpr unsigned long kRoom = 4UL << 20U;  // thrice what it takes
    struct statvfs disk {};
    while (::statvfs(folder.c_str(), &disk) != 0 && folder.find('/') != std::string::npos) {
        folder.erase(folder.rfind('/'));
    }
    return disk.f_frsize == 0 || disk.f_bavail * disk.f_frsize >= kRoom;
}

bool FillIndex(int file)
{
    struct stat found {};
    // One that cannot do it says so; that is no reason to do without.
    return ::fstat(file, &found) != 0 || ::fallocate(file, 0, 0, found.st_size) == 0 ||
           (errno != ENOSPC && errno != EDQUOT);
}

}  // namespace

void SecureShaderCache()
{
    const std::string folder = CacheFolder();
    const std::string index = folder + "/mesa_shader_cache/index";
    const int file = ::open(index.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    const bool isSafe = file >= 0 ? FillIndex(file) : HasRoomForNewIndex(folder);
    if (file >= 0) {
        ::close(file);
    }
    if (!isSafe) {
        ::setenv("MESA_SHADER_CACHE_DISABLE", "true", 1);
    }
}

}  // namespace CorvexMaterial
