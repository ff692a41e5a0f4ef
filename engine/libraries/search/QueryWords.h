#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace studio {

/// One word of the query: `-key>value`. Quotes are gone.
struct QueryWord {
    bool isNegated = false;
    std::string key;           ///< without case; empty for a part of a name
    std::string operatorText;  ///< empty for a part of a name
    std::string value;
};

/// What is between blanks; quotes hide blanks and signs.
[[nodiscard]] std::vector<QueryWord> QueryWordsOf(std::string_view text);

}  // namespace studio
