#pragma once

#include "host/Colour.h"
#include "host/RaytraceAttributes.h"

namespace CorvexMaterial {

/// The swatch's colour of stored fractions: each times 255, rounded. A component outside 0 to 1 is
/// brought inside.
[[nodiscard]] Colour ColourOfFractions(const CorvexDB::PatternColour& fractions);

/// Puts the colour's three fractions into the stored ones; alpha stays as it is.
void StoreFractions(CorvexDB::PatternColour& fractions, Colour colour);

}  // namespace CorvexMaterial
