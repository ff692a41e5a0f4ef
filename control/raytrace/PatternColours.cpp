#include "PatternColours.h"

#include <algorithm>
#include <array>

namespace CorvexMaterial {

namespace {

struct BlockPattern {
    std::string_view name;
    int colours;
};

// The list offers the first two alone; a record of another origin may name the others.
constexpr std::array<BlockPattern, 4> kBlockPatterns{
    {{"None", 0}, {"Checker", 2}, {"Brick", 2}, {"Hexagon", 3}}};

}  // namespace

PatternNeeds NeedsOfColorPattern(std::string_view name)
{
    const auto* const block = std::ranges::find(kBlockPatterns, name, &BlockPattern::name);
    return block == kBlockPatterns.end() ? PatternNeeds{} : PatternNeeds{block->colours, false};
}

}  // namespace CorvexMaterial
