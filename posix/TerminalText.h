#pragma once

#include <string>
#include <string_view>

namespace CorvexMaterial {

/// One line for a terminal. Whatever would act on it is shown as an escape: control characters,
/// line ends included, and what turns the direction of writing, ends a line or hides, as `\u001b`;
/// bytes that are no UTF-8 as `\xff`. The former are JSON's own escapes, so JSON says the same as
/// before.
[[nodiscard]] std::string TerminalText(std::string_view text);

}  // namespace CorvexMaterial
