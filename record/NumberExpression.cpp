#include <CorvexMaterial/NumberExpression.h>
#include <CorvexMaterial/NumberText.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace CorvexMaterial {

namespace {

using Fault = TypedNumber::Fault;

// Parentheses go as deep as a text is long.
constexpr std::size_t kLongest = 200;

constexpr bool IsDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

constexpr bool IsDecimalSign(char letter)
{
    return letter == '.' || letter == ',';
}

/// Signs that are typed in several ways become one.
std::string WithPlainSigns(std::string_view text)
{
    struct Sign {
        std::string_view typed;
        char plain;
    };
    constexpr std::array kSigns{Sign{"\u2212", '-'}, Sign{"\u00D7", '*'}, Sign{"\u00F7", '/'},
                                Sign{"\u00A0", ' '}, Sign{"\u202F", ' '}, Sign{"\u00B0", ' '},
                                Sign{"\t", ' '},     Sign{"\r", ' '},     Sign{"\n", ' '}};
    std::string plain;
    while (!text.empty()) {
        const auto* const sign = std::ranges::find_if(
            kSigns, [text](const Sign& known) { return text.starts_with(known.typed); });
        const bool isKnown = sign != kSigns.end();
        plain += isKnown ? sign->plain : text.front();
        text.remove_prefix(isKnown ? sign->typed.size() : 1);
    }
    return plain;
}

/// By descent; the first fault stays and ends it.
class ExpressionReader {
public:
    ExpressionReader(std::string_view text, double hundredPercent)
        : m_text(text), m_hundredPercent(hundredPercent)
    {
    }

    TypedNumber Whole()
    {
        const double value = Sum();
        if (!AtEnd() || !std::isfinite(value)) {
            Fail(Fault::NoNumber);
        }
        return {m_fault == Fault::None ? value : 0.0, false, m_fault};
    }

private:
    double Sum()
    {
        double value = Product();
        while (m_fault == Fault::None) {
            if (Take('+')) {
                value += Product();
            } else if (Take('-')) {
                value -= Product();
            } else {
                break;
            }
        }
        return value;
    }

    double Product()
    {
        double value = Signed();
        while (m_fault == Fault::None) {
            if (Take('*')) {
                value *= Signed();
            } else if (Take('/')) {
                value /= Signed();
            } else {
                break;
            }
        }
        return value;
    }

    double Signed()
    {
        if (Take('-')) {
            return -Signed();
        }
        return Take('+') ? Signed() : Shared();
    }

    double Shared()
    {
        double value = 0.0;
        if (Take('(')) {
            value = Sum();
            if (!Take(')')) {
                Fail(AtEnd() ? Fault::Unfinished : Fault::NoNumber);
            }
        } else {
            value = Number();
        }
        return Take('%') ? value / 100.0 * m_hundredPercent : value;
    }

    double Number()
    {
        if (AtEnd()) {
            Fail(Fault::Unfinished);
            return 0.0;
        }
        std::string digits;
        TakeDigits(digits);
        if (!m_text.empty() && IsDecimalSign(m_text.front())) {
            digits += '.';
            m_text.remove_prefix(1);
            TakeDigits(digits);
        }
        if (digits.empty() || digits == ".") {
            Fail(digits.empty() || !AtEnd() ? Fault::NoNumber : Fault::Unfinished);
            return 0.0;
        }
        const bool isGrouped =
            !AtEnd() && (IsDigit(m_text.front()) || IsDecimalSign(m_text.front()) ||
                         (m_text.front() == '\'' && m_text.size() > 1 && IsDigit(m_text[1])));
        if (isGrouped) {
            Fail(Fault::GroupSign);
        }
        double value = 0.0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        if (read.ec != std::errc()) {
            Fail(Fault::NoNumber);
        }
        return value;
    }

    void TakeDigits(std::string& digits)
    {
        const auto count =
            static_cast<std::size_t>(std::ranges::find_if_not(m_text, IsDigit) - m_text.begin());
        digits += m_text.substr(0, count);
        m_text.remove_prefix(count);
    }

    bool Take(char sign)
    {
        const bool isThere = !AtEnd() && m_text.front() == sign;
        m_text.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    bool AtEnd()
    {
        m_text.remove_prefix(std::min(m_text.find_first_not_of(' '), m_text.size()));
        return m_text.empty();
    }

    void Fail(Fault fault) { m_fault = m_fault == Fault::None ? fault : m_fault; }

    std::string_view m_text;
    double m_hundredPercent;
    Fault m_fault = Fault::None;
};

}  // namespace

TypedNumber ReadTyped(std::string_view text, double hundredPercent)
{
    if (const auto plain = NumberFromText(text)) {
        return {*plain, true, Fault::None};
    }
    if (text.size() > kLongest) {
        return {0.0, false, Fault::NoNumber};
    }
    return ExpressionReader(WithPlainSigns(text), hundredPercent).Whole();
}

}  // namespace CorvexMaterial
