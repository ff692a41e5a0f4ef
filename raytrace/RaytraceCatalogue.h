#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace CorvexMaterial {

// The lists of the raytrace attributes. What a material stores is a position in its list, so the
// order of every list is binding.

enum class MaterialType : std::int32_t { Custom = 0, Predefined = 1 };

enum class PredefinedType : std::int32_t { Glass, Metal, Stone, Wood, Miscellaneous };

enum class ColorPattern : std::int32_t {
    None,
    Agate,
    Boxed,
    Bozo,
    Cells,
    Checker,
    Crackle,
    Cylindrical,
    Dents,
    Gradient,
    Granite,
    Leopard,
    Marble,
    Onion,
    Planar,
    Quilted,
    Radial,
    Ripples,
    Spherical,
    Spiral1,
    Spiral2,
    Waves,
    Wood,
    Wrinkles,
};

enum class NormalPattern : std::int32_t {
    None,
    Bumps,
    Dents,
    Ripples,
    Wrinkles,
    Bozo,
    Checker,
    Crackle,
    Granite,
    Hexagon,
    Onion,
    Quilted,
    Spiral1,
    Spiral2,
    Waves,
};

inline constexpr std::array<std::string_view, 2> kMaterialTypeNames{"Custom", "Predefined"};

inline constexpr std::array<std::string_view, 5> kPredefinedTypeNames{"Glass", "Metal", "Stone",
                                                                      "Wood", "Miscellaneous"};

inline constexpr std::array<std::string_view, 24> kColorPatternNames{
    "None",      "Agate",       "Boxed",     "Bozo",     "Cells",   "Checker",
    "Crackle",   "Cylindrical", "Dents",     "Gradient", "Granite", "Leopard",
    "Marble",    "Onion",       "Planar",    "Quilted",  "Radial",  "Ripples",
    "Spherical", "Spiral #1",   "Spiral #2", "Waves",    "Wood",    "Wrinkles"};
static_assert(kColorPatternNames.size() == static_cast<std::size_t>(ColorPattern::Wrinkles) + 1);

inline constexpr std::array<std::string_view, 15> kNormalPatternNames{
    "None",    "Bumps",   "Dents", "Ripples", "Wrinkles",  "Bozo",      "Checker", "Crackle",
    "Granite", "Hexagon", "Onion", "Quilted", "Spiral #1", "Spiral #2", "Waves"};
static_assert(kNormalPatternNames.size() == static_cast<std::size_t>(NormalPattern::Waves) + 1);

inline constexpr std::int32_t kLongestPredefinedList = 31;
/// Number of predefined materials of a type; 0 for a type outside its list.
[[nodiscard]] std::int32_t PredefinedMaterialCount(std::int32_t type);
/// Empty for a position outside the list.
[[nodiscard]] std::string PredefinedMaterialName(std::int32_t type, std::int32_t index);

/// How many of the four swatches a colour pattern of this name uses; none for "None". Block
/// patterns take a fixed number of colours and neither frequency nor turbulence.
struct PatternNeeds {
    int swatches = 4;
    bool frequencyAndTurbulence = true;
};
[[nodiscard]] PatternNeeds NeedsOfColorPattern(std::string_view name);

/// Whether such attributes are rendered once into a texture that stands for them in real time.
[[nodiscard]] constexpr bool WantsSimulation(std::int32_t materialType, std::int32_t colorPattern)
{
    return materialType == static_cast<std::int32_t>(MaterialType::Predefined) || colorPattern != 0;
}

}  // namespace CorvexMaterial
