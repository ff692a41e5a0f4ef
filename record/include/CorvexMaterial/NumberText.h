#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace CorvexMaterial {

// Numbers and flags as the settings store and the text boxes hold them: decimal point, no digit
// grouping, whatever the locale. Blanks around a text and a leading plus are accepted.

/// Nothing for text that is not entirely a finite number.
[[nodiscard]] std::optional<double> NumberFromText(std::string_view text);

/// The same, of a number that a single can hold.
[[nodiscard]] std::optional<float> SingleFromText(std::string_view text);

/// Rounds half to even; nothing when the result does not fit 32 bits.
[[nodiscard]] std::optional<std::int32_t> WholeNumberFromText(std::string_view text);

/// "True" and "False" in any case; of a number, whether it differs from 0.
[[nodiscard]] std::optional<bool> FlagFromText(std::string_view text);

/// Shortest text that reads back to the same single; the value is finite.
[[nodiscard]] std::string TextOfSingle(float value);
[[nodiscard]] std::string TextOfWholeNumber(std::int32_t value);
[[nodiscard]] std::string TextOfFlag(bool value);

/// Half goes to the even neighbour. Nothing for NaN and for what does not fit 32 bits.
[[nodiscard]] std::optional<std::int32_t> RoundedIfFits(double value);

}  // namespace CorvexMaterial
