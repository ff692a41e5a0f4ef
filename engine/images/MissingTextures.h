#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace studio {

struct TextureReplacement {
    std::string missing;  ///< path as given
    std::string found;    ///< path of an existing file; empty when there is none

    bool operator==(const TextureReplacement&) const = default;
};

struct TextureSearch {
    std::size_t mostEntries = 200'000;  ///< files and folders looked at
    int mostDepth = 16;                 ///< folders below the first
    /// Asked now and then; true ends the search early. May be empty.
    std::function<bool()> cancelled;
};

struct FoundTextures {
    std::vector<TextureReplacement> replacements;  ///< one for each missing path, in its order
    bool complete = true;                          ///< the whole folder was searched
};

/// Searches a folder and those below it for files with the missing files' names; upper and lower
/// case are the same, and paths may have either kind of slash. Of several the one wins whose
/// folders are named most like the missing file's, then the one nearest to the top. Folders that
/// are links or may not be read are passed over. Paths are UTF-8.
FoundTextures FindMissingTextures(const std::vector<std::string>& missing,
                                  const std::string& folder, const TextureSearch& search = {});

}  // namespace studio
