#pragma once

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/RaytraceAttributes.h>

#include <string_view>

namespace CorvexMaterial {

/// A swatch's colour from stored fractions.
[[nodiscard]] inline Colour ColourOfFractions(const CorvexDB::PatternColour& fractions)
{
    return ColourOfDisplayed({fractions.red, fractions.green, fractions.blue});
}

/// Alpha is left alone.
inline void StoreFractions(CorvexDB::PatternColour& fractions, Colour colour)
{
    const Rgb parts = DisplayedOf(colour);
    fractions = {parts.red, parts.green, parts.blue, fractions.alpha};
}

/// How many of the four swatches a colour pattern of this name uses; none for "None". Block
/// patterns take a fixed number of colours and neither frequency nor turbulence.
struct PatternNeeds {
    int swatches = 4;
    bool frequencyAndTurbulence = true;
};
[[nodiscard]] PatternNeeds NeedsOfColorPattern(std::string_view name);

}  // namespace CorvexMaterial
