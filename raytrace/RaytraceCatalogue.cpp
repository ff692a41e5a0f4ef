#include "raytrace/RaytraceCatalogue.h"

#include <algorithm>

namespace CorvexMaterial {

namespace {

constexpr std::array<std::string_view, 13> kGlass{
    "Clear",       "Clear #2",    "Plexiglas", "Lead Crystal", "Green",  "Dark Green", "Old Glass",
    "Wine Bottle", "Beer Bottle", "Ruby",      "Yellow",       "Orange", "Vicks"};

constexpr std::array<std::string_view, 23> kMetal{
    "Chrome",      "Brass",       "Bronze",           "Gold",
    "Silver",      "Copper",      "Polished Chrome",  "Polished Brass",
    "New Brass",   "Spun Brass",  "Brushed Aluminum", "Silver #1",
    "Silver #2",   "Silver #3",   "Brass Valley",     "Rust",
    "Rusty Iron",  "Soft Silver", "New Penny",        "Tinny Brass",
    "Gold Nugget", "Aluminum",    "Bright Bronze"};

constexpr std::array<std::string_view, 5> kWood{"Wood #1", "Wood #2", "Yellow Pine", "Rosewood",
                                                "SandalWood"};

// "Lightening" is how users know these two.
constexpr std::array<std::string_view, 8> kMiscellaneous{
    "Shadow Clouds", "Clouds",        "Water",         "Water #2",
    "Cork",          "Lightening #1", "Lightening #2", "Starfield"};

constexpr std::int32_t kGranites = 10;
constexpr std::int32_t kStones = 20;
constexpr std::int32_t kStoneCount = kGranites + kStones + 1;
static_assert(kStoneCount == kLongestPredefinedList && kMetal.size() < kStoneCount);

std::string StoneName(std::int32_t index)
{
    if (index < kGranites) {
        return "Granite #" + std::to_string(index + 1);
    }
    if (index < kGranites + kStones) {
        return "Stone #" + std::to_string(index - kGranites + 1);
    }
    return "Pink Alabaster";
}

/// Empty for the stones, whose names are counted.
std::span<const std::string_view> NamesOf(PredefinedType type)
{
    switch (type) {
    case PredefinedType::Glass:
        return kGlass;
    case PredefinedType::Metal:
        return kMetal;
    case PredefinedType::Wood:
        return kWood;
    case PredefinedType::Miscellaneous:
        return kMiscellaneous;
    case PredefinedType::Stone:
        break;
    }
    return {};
}

struct BlockPattern {
    std::string_view name;
    int colours;
};

// The list offers the first alone; a record of another origin may name the others.
constexpr std::array<BlockPattern, 3> kBlockPatterns{
    {{"Checker", 2}, {"Brick", 2}, {"Hexagon", 3}}};

}  // namespace

std::int32_t PredefinedMaterialCount(std::int32_t type)
{
    if (type < 0 || type >= static_cast<std::int32_t>(kPredefinedTypeNames.size())) {
        return 0;
    }
    const auto known = static_cast<PredefinedType>(type);
    return known == PredefinedType::Stone ? kStoneCount
                                          : static_cast<std::int32_t>(NamesOf(known).size());
}

std::string PredefinedMaterialName(std::int32_t type, std::int32_t index)
{
    if (index < 0 || index >= PredefinedMaterialCount(type)) {
        return {};
    }
    const auto known = static_cast<PredefinedType>(type);
    return known == PredefinedType::Stone
               ? StoneName(index)
               : std::string(NamesOf(known)[static_cast<std::size_t>(index)]);
}

PatternNeeds NeedsOfColorPattern(std::string_view name)
{
    if (name == kColorPatternNames.front()) {
        return {0, false};
    }
    const auto* const block = std::ranges::find(kBlockPatterns, name, &BlockPattern::name);
    return block == kBlockPatterns.end() ? PatternNeeds{} : PatternNeeds{block->colours, false};
}

}  // namespace CorvexMaterial
