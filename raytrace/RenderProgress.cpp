#include "raytrace/RenderProgress.h"

#include <algorithm>
#include <charconv>

namespace CorvexMaterial {

namespace {

constexpr std::string_view kOpening = "Rendered ";
constexpr std::string_view kPercentOpening = "pixels (";
/// A program that prints without an end costs no more than this.
constexpr std::size_t kLongestLine = 4096;
constexpr std::size_t kMostMessages = 16384;

std::optional<int> PercentIn(std::string_view line)
{
    const std::size_t start = line.find(kOpening);
    const std::size_t bracket = line.find(kPercentOpening);
    if (start == std::string_view::npos || bracket == std::string_view::npos) {
        return std::nullopt;
    }
    line.remove_prefix(bracket + kPercentOpening.size());
    int percent = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), percent);
    const bool closed = error == std::errc() && end != line.data() + line.size() && *end == '%';
    return closed ? std::optional(std::clamp(percent, 0, 100)) : std::nullopt;
}

}  // namespace

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
        m_messages.append(m_line).push_back('\n');
        if (m_messages.size() > kMostMessages) {
            m_messages.erase(0, m_messages.find('\n', m_messages.size() - kMostMessages) + 1);
        }
    }
    m_line.clear();
}

std::string RenderProgress::Messages() const
{
    return m_messages + m_line;
}

}  // namespace CorvexMaterial
