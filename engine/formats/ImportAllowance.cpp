#include "ImportAllowance.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <sys/resource.h>
#include <unistd.h>

namespace studio {
namespace {

constexpr rlim_t kLeastSeconds = 3;
constexpr rlim_t kMostSeconds = 600;
constexpr std::int64_t kBytesASecond = std::int64_t{1} << 20;

bool isLimited = false;
std::int64_t bytesOpened = 0;
char complaint[80];  // ready, for a signal handler may not put it together

void End(int)
{
    const auto written = ::write(STDERR_FILENO, complaint, std::strlen(complaint));
    static_cast<void>(written);
    ::_exit(kTookTooLong);
}

void SetLimit()
{
    const rlim_t seconds =
        std::min(kLeastSeconds + static_cast<rlim_t>(bytesOpened / kBytesASecond), kMostSeconds);
    std::snprintf(complaint, sizeof complaint,
                  "after %u seconds of work, the most for a file of this size",
                  static_cast<unsigned>(seconds));
    const rlimit limit{seconds, kMostSeconds + 1};
    ::setrlimit(RLIMIT_CPU, &limit);
}

}  // namespace

void LimitTime()
{
    isLimited = true;
    std::signal(SIGXCPU, End);
    SetLimit();
}

void AllowTimeFor(std::int64_t bytes)
{
    if (isLimited) {
        bytesOpened += bytes;
        SetLimit();
    }
}

}  // namespace studio
