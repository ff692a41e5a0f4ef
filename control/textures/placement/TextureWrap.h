#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <array>
#include <optional>
#include <string>

namespace CorvexMaterial {

/// Captions of the wrap types and of the flat wrap's ways of tiling, by their codes.
inline constexpr std::array kWrapTitles{"Spherical Wrap", "Flat Wrap", "Cylindrical Wrap"};
inline constexpr std::array kFlatWrapTitles{"Tile by Unit", "Tile to Fit", "Size to Fit"};

/// The way of tiling that the first two of three options stand for; the first one wins.
[[nodiscard]] constexpr CorvexDB::FlatWrapType FlatWrapOfOptions(bool tileByUnit, bool tileToFit)
{
    if (tileByUnit) {
        return CorvexDB::FlatWrapType::TileByUnit;
    }
    return tileToFit ? CorvexDB::FlatWrapType::TileToFit : CorvexDB::FlatWrapType::SizeToFit;
}

inline constexpr const char* kDefaultTilesText = "1.0";
inline constexpr double kTilesStep = 0.1;

/// Tiles per unit from a field: at most three decimals, brought into the offered range. Nothing for
/// a text that is no number.
[[nodiscard]] std::optional<float> TilesFromText(const std::string& text);

}  // namespace CorvexMaterial
