#include "RaytracerRun.h"

#include "ProcessLeash.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <system_error>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace CorvexMaterial {
namespace {

/// POV-Ray takes half a second to end by itself; whoever ends us waits three.
constexpr int kPatienceSeconds = 2;
constexpr int kCouldNotStart = 127;

sigset_t WaitedSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int each : {SIGTERM, SIGINT, SIGHUP, SIGCHLD}) {
        sigaddset(&set, each);
    }
    return set;
}

[[noreturn]] void BecomeRaytracer(const std::string& program, const std::string& settingsName,
                                  const ProcessLeash& leash, int failurePipe)
{
    const sigset_t waited = WaitedSignals();
    sigprocmask(SIG_UNBLOCK, &waited, nullptr);
    leash.HoldThisProcess();
    execlp(program.c_str(), program.c_str(), settingsName.c_str(), static_cast<char*>(nullptr));
    const int reason = errno;
    [[maybe_unused]] const ssize_t told = write(failurePipe, &reason, sizeof reason);
    _exit(kCouldNotStart);
}

/// 0 when the program runs; the pipe is closed by a successful start.
int FailureToStart(int readEnd)
{
    int reason = 0;
    ssize_t got = 0;
    do {
        got = read(readEnd, &reason, sizeof reason);
    } while (got < 0 && errno == EINTR);
    close(readEnd);
    return got == static_cast<ssize_t>(sizeof reason) ? reason : 0;
}

pid_t Start(const std::string& program, const std::string& settingsName, const ProcessLeash& leash)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), program);
    }
    const pid_t child = fork();
    if (child == 0) {
        BecomeRaytracer(program, settingsName, leash, ends[1]);
    }
    const int forkFailure = child < 0 ? errno : 0;
    close(ends[1]);
    const int reason = forkFailure != 0 ? forkFailure : FailureToStart(ends[0]);
    if (reason != 0) {
        if (child > 0) {
            waitpid(child, nullptr, 0);
        }
        throw std::system_error(reason, std::generic_category(), program);
    }
    return child;
}

int CodeOf(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

void KeepSignals()
{
    const sigset_t waited = WaitedSignals();
    sigprocmask(SIG_BLOCK, &waited, nullptr);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
}

int RunRaytracer(const std::string& program, const std::string& settingsName)
{
    const ProcessLeash leash;
    const pid_t child = Start(program, settingsName, leash);
    const sigset_t waited = WaitedSignals();
    bool asked = false;
    for (;;) {
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child) {
            return CodeOf(status);
        }
        const timespec patience{kPatienceSeconds, 0};
        const int signal =
            asked ? sigtimedwait(&waited, nullptr, &patience) : sigwaitinfo(&waited, nullptr);
        if (signal == SIGCHLD || (signal < 0 && errno == EINTR)) {
            continue;
        }
        kill(-child, asked ? SIGKILL : SIGTERM);
        asked = true;
    }
}

}  // namespace CorvexMaterial
