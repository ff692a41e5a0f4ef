#include "PlainNumbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace studio {

std::string PlainNumber(float value)
{
    std::array<char, 64> text{};
    // Plain notation: not every reader knows exponents.
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), std::isfinite(value) ? value : 0.0F,
                      std::chars_format::fixed);
    return {text.data(), error == std::errc() ? end : text.data()};
}

std::string PlainNumbers(Rgb colour, std::string_view separator)
{
    std::string text = PlainNumber(colour.red);
    text += separator;
    text += PlainNumber(colour.green);
    text += separator;
    return text + PlainNumber(colour.blue);
}

}  // namespace studio
