#pragma once

#include "MissingTextures.h"

#include <string>
#include <vector>

namespace studio {

/// Copies files into a folder. One that is below it stays where it is; an equal one that is there
/// is used; beside another of the same name the copy gets a number. Returns those that have another
/// path now; what is no file is left out. Errors: FileFailed, naming the file and the reason;
/// copies made until then stay.
[[nodiscard]] std::vector<TextureReplacement> CollectFiles(const std::vector<std::string>& files,
                                                           const std::string& folder);

}  // namespace studio
