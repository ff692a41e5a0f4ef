#pragma once

#include <string>

namespace studio {

/// A file's path as a library stores it: starting with "./" or "../" when the file is in the
/// library's folder or in one beside it, so that both can move together; otherwise unchanged.
[[nodiscard]] std::string StoredPath(const std::string& file, const std::string& folder);

/// The path to use. A bare name is that of the file in the library's folder, if there is one.
[[nodiscard]] std::string PathOfStored(const std::string& stored, const std::string& folder);

/// Folder of a file, absolute.
[[nodiscard]] std::string FolderOf(const std::string& file);

}  // namespace studio
