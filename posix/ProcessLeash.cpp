#include "ProcessLeash.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <system_error>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

/// Waits until its input ends; `$0` is the group. Another program, so that it does not keep a copy
/// of the starter's memory.
constexpr const char* kWatch = "trap '' HUP INT TERM\n"
                               "read -r end\n"
                               "kill -s TERM -- \"-$0\" || exit 0\n"
                               "for pause in 1 2 3 4 5 6 7 8 9 10 11 12; do\n"
                               "  /bin/sleep 0.25\n"
                               "  kill -s 0 -- \"-$0\" || exit 0\n"
                               "done\n"
                               "kill -s KILL -- \"-$0\"\n";

// What runs between fork and exec may neither allocate nor take a lock: another thread of the
// starter may have held it when this process was copied.
[[noreturn]] void Watch(pid_t group, int input)
{
    std::array<char, 24> name{};
    std::to_chars(name.data(), name.data() + name.size() - 1, group);
    ::setsid();
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    ::dup2(input, STDIN_FILENO);
    ::fcntl(STDIN_FILENO, F_SETFD, 0);
    ::dup2(nothing, STDOUT_FILENO);
    ::dup2(nothing, STDERR_FILENO);
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
    ::execl("/bin/sh", "sh", "-c", kWatch, name.data(), static_cast<char*>(nullptr));
    ::_exit(1);
}

}  // namespace

ProcessLeash::ProcessLeash()
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    m_watched = ends[0];
    m_held = ends[1];
}

ProcessLeash::~ProcessLeash()
{
    ::close(m_held);
    ::close(m_watched);
}

void ProcessLeash::HoldThisProcess() const noexcept
{
    ::setpgid(0, 0);
    const pid_t group = ::getpid();
    // A child of a child: the program must never meet the watcher when it waits for its children.
    const pid_t between = ::_Fork();
    if (between == 0) {
        if (::_Fork() == 0) {
            Watch(group, m_watched);
        }
        ::_exit(0);
    }
    while (between > 0 && ::waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
    }
}

}  // namespace CorvexMaterial
