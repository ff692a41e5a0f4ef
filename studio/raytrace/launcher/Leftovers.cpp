#include "studio/raytrace/launcher/Leftovers.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <optional>
#include <string_view>

#include <unistd.h>

namespace launcher {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "corvex-";

/// `corvex-PROCESS.ini` and `corvex-PROCESS-NUMBER...` are ours, other names are not.
std::optional<pid_t> OwnerOf(std::string_view name)
{
    if (name.substr(0, kPrefix.size()) != kPrefix) {
        return std::nullopt;
    }
    name.remove_prefix(kPrefix.size());
    pid_t process = 0;
    const auto [rest, error] = std::from_chars(name.data(), name.data() + name.size(), process);
    name.remove_prefix(static_cast<std::size_t>(rest - name.data()));
    const bool ours =
        name == ".ini" || (name.size() > 1 && name[0] == '-' && name[1] >= '0' && name[1] <= '9');
    return error == std::errc() && process > 0 && ours ? std::optional(process) : std::nullopt;
}

bool Runs(pid_t process)
{
    return kill(process, 0) == 0 || errno != ESRCH;
}

}  // namespace

std::string OwnPrefix()
{
    return std::string(kPrefix) + std::to_string(getpid());
}

void RemoveLeftovers()
{
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::current_path(), ignored)) {
        const auto owner = OwnerOf(entry.path().filename().string());
        if (owner && !Runs(*owner) && !fs::is_directory(entry.symlink_status(ignored))) {
            fs::remove(entry.path(), ignored);
        }
    }
}

}  // namespace launcher
