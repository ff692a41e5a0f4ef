#pragma once

#include <CorvexMaterial/Twips.h>

namespace CorvexMaterial {

inline constexpr int kTextureRowTwips = 990;
inline constexpr int kMaterialRowTwips = 1020;
static_assert(kTextureRowTwips % kTwipsPerPixel == 0 && kMaterialRowTwips % kTwipsPerPixel == 0);

/// Rows are 16-bit numbers wherever they are kept.
inline constexpr int kMostRows = 32'767;

/// Rows that the two library browsers show.
struct LibraryRows {
    int texture = 1;
    int material = 1;

    bool operator==(const LibraryRows&) const = default;
};

/// Shares an offered height between the browsers: about half of the rows to the textures, every
/// full row that is left to the materials, each at least one and at most `kMostRows`. `panelTwips`
/// is the panel's height with the rows shown now, which are given back first.
[[nodiscard]] LibraryRows ShareHeight(int availableTwips, int panelTwips, LibraryRows shown);

}  // namespace CorvexMaterial
