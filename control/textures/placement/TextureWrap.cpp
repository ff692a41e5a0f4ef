#include "TextureWrap.h"

#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Schema.h>

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

std::optional<float> TilesFromText(const std::string& text)
{
    constexpr double kDecimalUnits = 1000.0;
    const auto tiles = NumberFromText(text);
    if (!tiles) {
        return std::nullopt;
    }
    const NumberRange& range = RowOf(Attribute::TilesPerUnit).range;
    const double inRange = std::clamp(*tiles, range.least, range.most);
    return static_cast<float>(std::round(inRange * kDecimalUnits) / kDecimalUnits);
}

}  // namespace CorvexMaterial
