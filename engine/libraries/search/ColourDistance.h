#pragma once

#include <CorvexMaterial/Colour.h>

namespace studio {

/// How different two colours look: their distance in CIE L*a*b* under D65. 0 for the same, about 2
/// for just visibly different, about 100 for black and white.
[[nodiscard]] double ColourDistance(CorvexMaterial::Colour one, CorvexMaterial::Colour other);

}  // namespace studio
