#pragma once

#include <string>
#include <string_view>

namespace studio {

/// A name fit to be shown: valid UTF-8, one line, printable, at most 80 characters. A name of which
/// nothing is left becomes the fallback.
[[nodiscard]] std::string ReadableName(std::string_view raw, std::string_view fallback);

}  // namespace studio
