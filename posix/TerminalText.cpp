#include "TerminalText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace CorvexMaterial {

namespace {

struct Range {
    std::uint32_t first;
    std::uint32_t last;
};

constexpr std::array kActing{
    Range{0x00, 0x1F},        // control characters
    Range{0x7F, 0x9F},        // more of them
    Range{0x061C, 0x061C},    // direction of writing
    Range{0x200E, 0x200F},    //
    Range{0x2028, 0x202E},    // line ends, and direction again
    Range{0x2066, 0x2069},    //
    Range{0xE0000, 0xE007F},  // letters that are not shown
};

struct Sign {
    std::uint32_t code;
    std::size_t bytes;  ///< 0: the text does not begin with UTF-8
};

struct Lead {
    unsigned char mask;
    unsigned char bits;
    std::size_t bytes;
    std::uint32_t least;  ///< what takes fewer bytes must be written with fewer
};

constexpr std::array kLeads{Lead{0x80, 0x00, 1, 0}, Lead{0xE0, 0xC0, 2, 0x80},
                            Lead{0xF0, 0xE0, 3, 0x800}, Lead{0xF8, 0xF0, 4, 0x10000}};

Sign FirstOf(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto lead = std::ranges::find_if(
        kLeads, [&](const Lead& row) { return (byte(0) & row.mask) == row.bits; });
    if (lead == kLeads.end() || text.size() < lead->bytes) {
        return {};
    }
    std::uint32_t code = byte(0) & static_cast<unsigned char>(~lead->mask);
    for (std::size_t i = 1; i < lead->bytes; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return {};
        }
        code = code << 6 | (byte(i) & 0x3F);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < lead->least || code > 0x10FFFF || isSurrogate ? Sign{} : Sign{code, lead->bytes};
}

std::string Escape(const char* form, std::uint32_t number)
{
    std::array<char, 16> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), form, number));
    return text.data();
}

/// JSON writes what is beyond 16 bits as two halves.
std::string EscapeOf(std::uint32_t code)
{
    constexpr const char* kForm = "\\u%04x";
    return code < 0x10000 ? Escape(kForm, code)
                          : Escape(kForm, 0xD800 + ((code - 0x10000) >> 10)) +
                                Escape(kForm, 0xDC00 + ((code - 0x10000) & 0x3FF));
}

bool Acts(std::uint32_t code)
{
    return std::ranges::any_of(
        kActing, [code](const Range& range) { return code >= range.first && code <= range.last; });
}

}  // namespace

std::string TerminalText(std::string_view text)
{
    std::string safe;
    while (!text.empty()) {
        const Sign sign = FirstOf(text);
        if (sign.bytes == 0) {
            safe += Escape("\\x%02x", static_cast<unsigned char>(text.front()));
        } else if (Acts(sign.code)) {
            safe += EscapeOf(sign.code);
        } else {
            safe += text.substr(0, sign.bytes);
        }
        text.remove_prefix(std::max<std::size_t>(sign.bytes, 1));
    }
    return safe;
}

}  // namespace CorvexMaterial
