#include "Quoting.h"

#include <algorithm>

namespace studio {
namespace {

constexpr std::size_t kLongestComment = 400;

bool IsControl(char letter)
{
    const auto code = static_cast<unsigned char>(letter);
    return code < 0x20 || code == 0x7F;
}

/// Backslash before quotes and backslashes, as both languages have it.
std::string QuotedPiece(std::string_view text)
{
    std::string quoted = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') {
            quoted += '\\';
        }
        quoted += IsControl(letter) ? ' ' : letter;
    }
    return quoted + '"';
}

// NEL, LINE SEPARATOR and PARAGRAPH SEPARATOR end a line for some readers.
void BlankUnicodeBreaks(std::string& text)
{
    for (const std::string_view separator : {"\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"}) {
        for (std::size_t at = text.find(separator); at != std::string::npos;
             at = text.find(separator, at)) {
            text.replace(at, separator.size(), " ");
        }
    }
}

void CutTo(std::string& text, std::size_t bytes)
{
    if (text.size() <= bytes) {
        return;
    }
    std::size_t end = bytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    text.resize(end);
}

}  // namespace

std::string PovRayString(std::string_view text)
{
    return QuotedPiece(text);
}

std::string RibString(std::string_view text)
{
    return QuotedPiece(text);
}

std::string CommentText(std::string_view text)
{
    std::string line(text);
    BlankUnicodeBreaks(line);
    std::replace_if(line.begin(), line.end(), IsControl, ' ');
    CutTo(line, kLongestComment);
    while (!line.empty() && (line.back() == '\\' || line.back() == ' ')) {
        line.pop_back();
    }
    return line;
}

bool IsPlainPath(std::string_view path)
{
    return std::all_of(path.begin(), path.end(), [](char letter) {
        return static_cast<unsigned char>(letter) < 0x7F && !IsControl(letter) && letter != '\\';
    });
}

}  // namespace studio
