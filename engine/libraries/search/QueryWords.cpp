#include "QueryWords.h"

#include "SearchProperties.h"

#include <algorithm>
#include <array>

namespace studio {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// Cuts words off the text.
class QueryCutter {
public:
    explicit QueryCutter(std::string_view text) : m_rest(text) { SkipBlanks(); }

    [[nodiscard]] bool AtEnd() const { return m_rest.empty(); }

    QueryWord Next()
    {
        QueryWord word;
        word.isNegated = m_rest.size() > 1 && m_rest[0] == '-' && !IsBlank(m_rest[1]);
        if (word.isNegated) {
            m_rest.remove_prefix(1);
        }
        word.value = Piece(m_rest.front() == '"' ? "" : ":<>=!~");
        if (word.value.empty()) {
            // What begins with a sign has no key: it is part of a name as it stands.
            word.value = Piece("");
        } else if (!m_rest.empty() && !IsBlank(m_rest.front())) {
            word.key = Folded(word.value);
            word.operatorText = Operator();
            word.value = Piece("");
        }
        SkipBlanks();
        return word;
    }

private:
    static bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

    void SkipBlanks()
    {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kBlanks), m_rest.size()));
    }

    // Up to a blank or one of the ends; quotes hide both.
    std::string Piece(std::string_view ends)
    {
        std::string piece;
        bool isQuoted = false;
        while (!m_rest.empty()) {
            const char c = m_rest.front();
            const bool isEnd = IsBlank(c) || ends.find(c) != std::string_view::npos;
            if (!isQuoted && isEnd) {
                break;
            }
            m_rest.remove_prefix(1);
            if (c == '"') {
                isQuoted = !isQuoted;
            } else {
                piece += c;
            }
        }
        return piece;
    }

    std::string Operator()
    {
        constexpr std::array<std::string_view, 9> kOperators{"<=", ">=", "!=", "<", ">",
                                                             "=",  ":",  "~",  "!"};
        const auto found = std::ranges::find_if(
            kOperators, [&](std::string_view text) { return m_rest.starts_with(text); });
        m_rest.remove_prefix(found->size());
        return std::string(*found);
    }

    std::string_view m_rest;
};

}  // namespace

std::vector<QueryWord> QueryWordsOf(std::string_view text)
{
    std::vector<QueryWord> words;
    for (QueryCutter cutter(text); !cutter.AtEnd();) {
        words.push_back(cutter.Next());
    }
    return words;
}

}  // namespace studio
