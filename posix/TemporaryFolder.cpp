#include "TemporaryFolder.h"

#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "corvex-";
constexpr std::string_view kPattern = "-XXXXXX";
constexpr const char* kLockName = ".owner";

bool IsOurs(const std::string& name)
{
    const bool framed = name.size() > kPrefix.size() + kPattern.size() &&
                        name.compare(0, kPrefix.size(), kPrefix) == 0;
    const auto end = name.end() - static_cast<std::ptrdiff_t>(kPattern.size());
    return framed && *end == '-' &&
           std::all_of(name.begin() + kPrefix.size(), end,
                       [](char letter) { return letter >= 'a' && letter <= 'z'; });
}

/// Of this user, who alone can enter it: what is inside does not change under our hands.
bool IsPrivateFolder(const std::string& path)
{
    struct stat found {};
    return ::lstat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode) &&
           found.st_uid == ::geteuid() && (found.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

/// The lock goes last, so that what an interrupted removal leaves can still be swept.
void Remove(const std::string& path, OwnerLock lock)
{
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(path, ignored)) {
        if (entry.path().filename() != kLockName) {
            fs::remove_all(entry.path(), ignored);
        }
    }
    lock = OwnerLock();
    ::rmdir(path.c_str());
}

}  // namespace

std::string SystemTemporaryFolder()
{
    const char* named = std::getenv("TMPDIR");
    return named != nullptr && *named == '/' ? named : "/tmp";
}

TemporaryFolder::TemporaryFolder(const std::string& purpose, const std::string& in)
{
    bool swept = false;
    do {
        m_path = in + '/';
        m_path.append(kPrefix).append(purpose).append(kPattern);
        const bool made = ::mkdtemp(m_path.data()) != nullptr;
        if (made) {
            m_owner = OwnerLock::Make(FilePath(kLockName));
        }
        // Another process may take it for left over as long as it is empty.
        swept = made && !m_owner.Held() && (errno == ENOENT || errno == EEXIST);
    } while (swept);
    if (!m_owner.Held()) {
        const std::string reason = std::generic_category().message(errno);
        ::rmdir(m_path.c_str());
        throw Error(Status::FileFailed, "No folder can be made in " + in + ": " + reason);
    }
}

TemporaryFolder::~TemporaryFolder()
{
    Remove(m_path, std::move(m_owner));
}

void SweepTemporaryFolders(const std::string& in) noexcept
{
    std::error_code error;
    for (fs::directory_iterator each(in, error), end; !error && each != end;
         each.increment(error)) {
        const std::string path = each->path().string();
        if (!IsOurs(each->path().filename().string()) || !IsPrivateFolder(path)) {
            continue;
        }
        if (OwnerLock lock = OwnerLock::TakeOver(path + '/' + kLockName); lock.Held()) {
            Remove(path, std::move(lock));
        } else {
            ::rmdir(path.c_str());  // its process was killed at the very beginning
        }
    }
}

}  // namespace CorvexMaterial
