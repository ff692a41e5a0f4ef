#include "ProcessLimits.h"

#include <algorithm>
#include <array>
#include <csignal>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

struct Limit {
    __rlimit_resource resource;
    rlim_t most;
};

constexpr rlim_t kGigabyte = rlim_t{1} << 30;

constexpr std::array kLimits{
    Limit{RLIMIT_CORE, 0},
    Limit{RLIMIT_FSIZE, 2 * kGigabyte},
#ifndef CORVEX_SANITIZED  // its shadow memory alone is larger than any sensible limit
    Limit{RLIMIT_AS, 4 * kGigabyte},
#endif
};

// Ready, for a signal handler may not put it together.
std::array<char, 80> lastWords;
std::size_t lastWordsLength = 0;
int lastCode = 0;

void End(int)
{
    const auto written = ::write(STDERR_FILENO, lastWords.data(), lastWordsLength);
    static_cast<void>(written);
    ::_exit(lastCode);
}

}  // namespace

void ContainThisProcess()
{
    for (const auto& [resource, most] : kLimits) {
        const rlimit limit{most, most};
        ::setrlimit(resource, &limit);
    }
    ::prctl(PR_SET_DUMPABLE, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void EndAfter(unsigned seconds, std::string_view complaint, int exitCode)
{
    lastWordsLength = complaint.copy(lastWords.data(), lastWords.size());
    lastCode = exitCode;
    std::signal(SIGXCPU, End);
    rlimit limit{};
    ::getrlimit(RLIMIT_CPU, &limit);
    limit.rlim_cur = std::min<rlim_t>(seconds, limit.rlim_max);
    ::setrlimit(RLIMIT_CPU, &limit);
}

}  // namespace CorvexMaterial
