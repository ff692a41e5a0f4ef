#include "textures/TextureWrap.h"

#include "record/NumberText.h"

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
    const double inRange = std::clamp(*tiles, kTilesRange.minimum, kTilesRange.maximum);
    return static_cast<float>(std::round(inRange * kDecimalUnits) / kDecimalUnits);
}

}  // namespace CorvexMaterial
