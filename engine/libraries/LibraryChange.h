#pragma once

#include "LibraryEntry.h"

#include <functional>
#include <string>
#include <vector>

namespace studio {

/// What happened to a library through the control: enough to take it back.
struct LibraryChange {
    enum class Kind { Added, Removed };
    Kind kind = Kind::Added;
    std::string path;  ///< absolute
    std::vector<EntryId> ids;
};

using LibraryListener = std::function<void(const LibraryChange&)>;

}  // namespace studio
