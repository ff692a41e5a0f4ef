#pragma once

// What a person may type where a number is wanted.

#include <cstdint>
#include <string_view>

namespace CorvexMaterial {

struct TypedNumber {
    enum class Fault : std::uint8_t {
        None,
        Unfinished,  ///< it could become one, as nothing at all or "2*"
        GroupSign,   ///< more than one decimal sign, or digits that stand in groups
        NoNumber,    ///< no end of it makes it a number, or not a finite one
    };

    double value = 0.0;    ///< without a fault
    bool isPlain = false;  ///< digits, as `NumberFromText` reads them, and nothing to compute
    Fault fault = Fault::None;
};

/// Numbers with a decimal point or a decimal comma, with "%" behind them, + - * / and parentheses
/// between and around them: "2*1.5", "50 %", "12,5". What "100 %" is depends on the field; a degree
/// sign is passed over. There is no group sign: of "1.234,5" nobody could tell what "1.234" is.
[[nodiscard]] TypedNumber ReadTyped(std::string_view text, double hundredPercent = 1.0);

}  // namespace CorvexMaterial
