#pragma once

#include <QByteArray>

#include <cstddef>
#include <string>
#include <vector>

namespace studio {

/// An image that is inside a file, as it is there.
struct EmbeddedPicture {
    QByteArray bytes;
    std::vector<std::size_t> wearers;  ///< indexes of the materials whose primary texture it is
};

/// Puts the picture into `Textures/` in the folder, named after its owner, and returns its path;
/// empty for what is no image. Errors: FileFailed naming the picture.
[[nodiscard]] std::string KeepPicture(const EmbeddedPicture& picture, const std::string& owner,
                                      const std::string& folder);

}  // namespace studio
