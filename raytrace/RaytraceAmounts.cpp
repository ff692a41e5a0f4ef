#include "raytrace/RaytraceAmounts.h"

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

/// Every amount is a field of its own, starts inside its range and has the record's own default.
constexpr bool AmountsAreSound()
{
    constexpr RaytraceRecord kFresh;
    for (std::size_t i = 0; i < kRaytraceAmounts.size(); ++i) {
        const RaytraceAmount& row = kRaytraceAmounts[i];
        if (row.defaultPosition < row.minimum || row.defaultPosition > kAmountMaximum ||
            static_cast<int>(kFresh.*row.field) != row.defaultPosition) {
            return false;
        }
        for (std::size_t other = 0; other < i; ++other) {
            if (kRaytraceAmounts[other].field == row.field) {
                return false;
            }
        }
    }
    return true;
}
static_assert(AmountsAreSound());

}  // namespace

int PositionOf(const RaytraceAmount& amount, float stored)
{
    if (std::isnan(stored)) {
        return amount.defaultPosition;
    }
    const auto lowest = static_cast<float>(amount.minimum);
    const auto highest = static_cast<float>(kAmountMaximum);
    return static_cast<int>(std::lround(std::clamp(stored, lowest, highest)));
}

}  // namespace CorvexMaterial
