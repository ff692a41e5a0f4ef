#pragma once

#include "Frame.h"

#include <array>

namespace studio {

/// Encoded sRGB, 0 to 1.
using EncodedColour = std::array<float, 3>;

struct BackdropColours {
    EncodedColour top;
    EncodedColour bottom;
};

/// The gradient runs evenly between the two in encoded values, from the picture's top edge to its
/// bottom edge. A flat backdrop has the same colour twice.
[[nodiscard]] BackdropColours BackdropColoursOf(CorvexMaterial::Colour background,
                                                Backdrop backdrop);

}  // namespace studio
