#include "textures/TextureWrap.h"

#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr double kDefault = 1.0;
constexpr double kMinimum = 0.01;
constexpr double kMaximum = 1000.0;
constexpr double kDecimalUnits = 1000.0;
constexpr double kStep = 0.1;

double Accepted(double tiles)
{
    return std::round(std::clamp(tiles, kMinimum, kMaximum) * kDecimalUnits) / kDecimalUnits;
}

}  // namespace

std::optional<float> TilesFromText(const std::string& text)
{
    const auto tiles = NumberFromText(text);
    return tiles ? std::optional(static_cast<float>(Accepted(*tiles))) : std::nullopt;
}

std::string SteppedTiles(const std::string& text, int steps)
{
    const double stepped = NumberFromText(text).value_or(kDefault) + steps * kStep;
    std::string shown = TextOfSingle(static_cast<float>(Accepted(stepped)));
    return shown.find('.') == std::string::npos ? shown + ".0" : shown;
}

}  // namespace CorvexMaterial
