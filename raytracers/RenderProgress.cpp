#include "RenderProgress.h"

#include "Raytracers.h"
#include "TerminalText.h"

#include <algorithm>
#include <cctype>

namespace CorvexMaterial {

namespace {

/// A program that prints without an end costs no more than this.
constexpr std::size_t kLongestLine = 4096;
constexpr std::size_t kMostMessages = 16384;

/// No two of them say it in the same words.
std::optional<int> PercentIn(std::string_view line)
{
    for (const RaytracerRow& row : Raytracers()) {
        const auto percent =
            row.output.percentIn != nullptr ? row.output.percentIn(line) : std::optional<int>();
        if (percent) {
            return percent;
        }
    }
    return std::nullopt;
}

bool IsLetter(char letter)
{
    return std::isalpha(static_cast<unsigned char>(letter)) != 0;
}

bool HasWord(std::string_view line, std::string_view word)
{
    for (std::size_t at = line.find(word); at != std::string_view::npos;
         at = line.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !IsLetter(line[at - 1])) && (end == line.size() || !IsLetter(line[end]))) {
            return true;
        }
    }
    return false;
}

bool SaysError(std::string_view line)
{
    constexpr std::string_view kBegin = "error:";
    const bool begins =
        line.size() >= kBegin.size() &&
        std::ranges::equal(kBegin, line.substr(0, kBegin.size()), [](char a, char b) {
            return a == std::tolower(static_cast<unsigned char>(b));
        });
    return begins || HasWord(line, "ERROR") || HasWord(line, "SEVERE");
}

}  // namespace

std::string_view ErrorLineIn(std::string_view messages)
{
    while (!messages.empty()) {
        const std::string_view line = messages.substr(0, messages.find('\n'));
        if (SaysError(line)) {
            return line;
        }
        messages.remove_prefix(std::min(line.size() + 1, messages.size()));
    }
    return {};
}

void RenderProgress::Feed(std::string_view printed)
{
    for (const char letter : printed) {
        if (letter == '\n' || letter == '\r') {
            TakeLine();
        } else if (m_line.size() < kLongestLine) {
            m_line.push_back(letter);
        }
    }
}

void RenderProgress::TakeLine()
{
    if (const auto percent = PercentIn(m_line)) {
        m_percent = percent;
    } else if (!m_line.empty()) {
        if (m_error.empty() && SaysError(m_line)) {
            m_error = TerminalText(m_line);
        }
        m_messages.append(TerminalText(m_line)).push_back('\n');
        if (m_messages.size() > kMostMessages) {
            m_messages.erase(0, m_messages.find('\n', m_messages.size() - kMostMessages) + 1);
        }
    }
    m_line.clear();
}

std::string RenderProgress::Messages() const
{
    const bool dropped = m_messages.find(m_error) == std::string::npos;
    return (dropped ? m_error + "\n...\n" : std::string()) + m_messages + TerminalText(m_line);
}

}  // namespace CorvexMaterial
