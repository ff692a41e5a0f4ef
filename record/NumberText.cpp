#include <CorvexMaterial/NumberText.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace CorvexMaterial {

namespace {

// Long enough for the shortest form of any single and for any 32-bit integer.
constexpr std::size_t kLongestNumber = 24;

std::string_view WithoutBlanks(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool EqualsWithoutCase(std::string_view text, std::string_view lowerCase)
{
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](char left, char right) {
                          const bool isUpper = left >= 'A' && left <= 'Z';
                          return (isUpper ? left - 'A' + 'a' : left) == right;
                      });
}

template <typename Number>
std::string ShortestText(Number value)
{
    std::array<char, kLongestNumber> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

template <typename Number>
std::optional<Number> FiniteFromText(std::string_view text)
{
    text = WithoutBlanks(text);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    Number value = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::optional<double> NumberFromText(std::string_view text)
{
    return FiniteFromText<double>(text);
}

std::optional<float> SingleFromText(std::string_view text)
{
    return FiniteFromText<float>(text);
}

std::optional<std::int32_t> WholeNumberFromText(std::string_view text)
{
    const std::optional<double> number = NumberFromText(text);
    return number ? RoundedIfFits(*number) : std::nullopt;
}

std::optional<bool> FlagFromText(std::string_view text)
{
    text = WithoutBlanks(text);
    if (EqualsWithoutCase(text, "true")) {
        return true;
    }
    if (EqualsWithoutCase(text, "false")) {
        return false;
    }
    const std::optional<double> number = NumberFromText(text);
    return number ? std::optional(*number != 0.0) : std::nullopt;
}

std::string TextOfSingle(float value)
{
    return ShortestText(value);
}

std::string TextOfWholeNumber(std::int32_t value)
{
    return ShortestText(value);
}

std::string TextOfFlag(bool value)
{
    return value ? "True" : "False";
}

std::optional<std::int32_t> RoundedIfFits(double value)
{
    // The largest magnitudes round to themselves; above 2^52 there are no fractions left.
    double whole = std::floor(value);
    const double fraction = value - whole;
    const bool isOdd = std::fmod(whole, 2.0) != 0.0;
    if (fraction > 0.5 || (fraction == 0.5 && isOdd)) {
        whole += 1.0;
    }
    constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    // Written so that NaN does not fit.
    if (!(whole >= kLeast && whole <= kMost)) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(whole);
}

}  // namespace CorvexMaterial
