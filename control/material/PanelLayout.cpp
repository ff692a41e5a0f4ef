#include "PanelLayout.h"

#include <algorithm>
#include <cstdint>

namespace CorvexMaterial {

namespace {

constexpr std::int64_t kMeanRowTwips = (kTextureRowTwips + kMaterialRowTwips) / 2;

std::int64_t HalfToEven(std::int64_t count)
{
    const std::int64_t half = count / 2;
    return count % 2 == 0 || half % 2 == 0 ? half : half + 1;
}

int WithinBounds(std::int64_t rows)
{
    return static_cast<int>(std::clamp<std::int64_t>(rows, 1, kMostRows));
}

}  // namespace

LibraryRows ShareHeight(int availableTwips, int panelTwips, LibraryRows shown)
{
    // Rows below zero show nothing: there is nothing of them to give back.
    std::int64_t space = std::int64_t{availableTwips} - panelTwips +
                         std::int64_t{std::max(shown.texture, 0)} * kTextureRowTwips +
                         std::int64_t{std::max(shown.material, 0)} * kMaterialRowTwips;
    LibraryRows shared;
    shared.texture = WithinBounds(HalfToEven(space / kMeanRowTwips));
    space -= std::int64_t{shared.texture} * kTextureRowTwips;
    shared.material = WithinBounds(space / kMaterialRowTwips);
    return shared;
}

}  // namespace CorvexMaterial
