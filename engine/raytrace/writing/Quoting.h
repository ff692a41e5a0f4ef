#pragma once

#include <string>
#include <string_view>

namespace studio {

// What a user named - shapes, files, fields of his own - goes into scene files through here only,
// so that no name can end its line, its string or its comment.

/// A POV-Ray string with its quotes.
[[nodiscard]] std::string PovRayString(std::string_view text);
/// A RIB string with its quotes.
[[nodiscard]] std::string RibString(std::string_view text);
/// One line for after `//` or `#`: line breaks and control letters, Unicode's own included, become
/// blanks, and the text never ends in a backslash. At most 400 bytes, in whole UTF-8 letters.
[[nodiscard]] std::string CommentText(std::string_view text);
/// Whether POV-Ray finds a file by this path: ASCII without control letters and backslashes.
[[nodiscard]] bool IsPlainPath(std::string_view path);

}  // namespace studio
