#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace studio {

using Json = nlohmann::ordered_json;

/// A JSON text that means `now`, changed no more than that takes: what is equal keeps its letters,
/// what is new is written like its neighbours. `was` is what the text means; members of the text
/// that it leaves out stay. Both are of the kind that the text is. The text is well formed.
[[nodiscard]] std::string SplicedJson(std::string_view text, const Json& was, const Json& now);

}  // namespace studio
