#include "ImportAllowance.h"

#include "ProcessLimits.h"

#include <algorithm>
#include <string>

namespace studio {
namespace {

constexpr std::int64_t kLeastSeconds = 3;
constexpr std::int64_t kMostSeconds = 600;
constexpr std::int64_t kBytesASecond = std::int64_t{1} << 20;

bool isLimited = false;
std::int64_t bytesOpened = 0;

void SetLimit()
{
    const auto seconds =
        static_cast<unsigned>(std::min(kLeastSeconds + bytesOpened / kBytesASecond, kMostSeconds));
    CorvexMaterial::EndAfter(seconds,
                             "after " + std::to_string(seconds) +
                                 " seconds of work, the most for a file of this size",
                             kTookTooLong);
}

}  // namespace

void LimitTime()
{
    isLimited = true;
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
