#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace CorvexMaterial {

/// Reads what a renderer prints while it works. Its lines end with line feeds or, while it counts
/// pixels, with carriage returns, and arrive in any pieces.
class RenderProgress {
public:
    void Feed(std::string_view printed);

    /// Of the last line that says how far it is, 0 to 100.
    [[nodiscard]] std::optional<int> Percent() const { return m_percent; }
    /// The last lines that are no progress, to explain a failure, safe to be shown; the
    /// unfinished line included. The first line that says ERROR or SEVERE is always among them.
    [[nodiscard]] std::string Messages() const;

private:
    void TakeLine();

    std::string m_line;
    std::string m_messages;
    std::string m_error;
    std::optional<int> m_percent;
};

/// The first line in which a program says ERROR or SEVERE, or begins with "error:" in any letters;
/// empty without one. Programs that go on after an error often end as if there had been none.
[[nodiscard]] std::string_view ErrorLineIn(std::string_view messages);

}  // namespace CorvexMaterial
