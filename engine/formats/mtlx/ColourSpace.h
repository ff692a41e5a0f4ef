#pragma once

#include "Amounts.h"

#include <optional>
#include <string_view>

namespace studio {

/// A colour given in a space by its MaterialX name, as light with the primaries of sRGB. An empty
/// name is light already. Nothing for a space that is not known.
[[nodiscard]] std::optional<Rgb> LightInSpace(Rgb colour, std::string_view space);

}  // namespace studio
