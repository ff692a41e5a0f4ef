#pragma once

#include <map>
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

/// Which images have an alpha channel that covers something, of all types that can be shown. Every
/// file is read once.
class AlphaChannels {
public:
    /// False for a file that cannot be read.
    [[nodiscard]] bool In(const std::string& texture);

private:
    std::map<std::string, bool> m_known;
};

}  // namespace studio
