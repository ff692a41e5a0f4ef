#pragma once

#include "Amounts.h"

#include <string>
#include <string_view>

namespace studio {

/// The shortest text that is read back as the same number, in the C locale.
[[nodiscard]] std::string PlainNumber(float value);
/// The three, separated.
[[nodiscard]] std::string PlainNumbers(Rgb colour, std::string_view separator);

}  // namespace studio
