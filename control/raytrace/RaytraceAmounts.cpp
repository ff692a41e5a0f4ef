#include "RaytraceAmounts.h"

#include <CorvexMaterial/NumberText.h>

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

int PositionOf(const RaytraceAmount& amount, float stored)
{
    if (std::isnan(stored)) {
        return DefaultPositionOf(amount);
    }
    const NumberRange& range = RowOf(amount.attribute).range;
    return static_cast<int>(std::lround(std::clamp<double>(stored, range.least, range.most)));
}

int DefaultPositionOf(const RaytraceAmount& amount)
{
    return WholeNumberFromText(FactoryText(amount.attribute)).value_or(0);
}

}  // namespace CorvexMaterial
