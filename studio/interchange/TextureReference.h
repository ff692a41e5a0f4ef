#pragma once

#include <string>

namespace studio {

/// The way from a document's folder to a texture file, with slashes: "Textures/oak.png",
/// "../oak.png". Paths that are not absolute are kept. Both are UTF-8.
[[nodiscard]] std::string ReferenceTo(const std::string& texture, const std::string& folder);

struct FoundTexture {
    std::string path;  ///< absolute; of the folder where nothing was found
    bool exists = false;
};

/// The file that a document in the folder means. Backslashes and drive letters of other systems are
/// understood; a file that is not where the document says is looked for beside it.
[[nodiscard]] FoundTexture FindReferenced(const std::string& reference, const std::string& folder);

/// Whether the image in the file has an alpha channel, as far as its header tells.
[[nodiscard]] bool HasAlphaChannel(const std::string& texture);

}  // namespace studio
