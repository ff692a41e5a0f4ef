#pragma once

#include "LibraryCommandLine.h"
#include "MaterialText.h"

#include <functional>
#include <span>

namespace studio {

/// Formats of other programs, which the library commands import and export beside the studio's own
/// (.json). They append what a person should know of the way the materials went. Pictures inside a
/// file are put into `Textures/` in the folder.
struct ForeignFormats {
    std::function<std::vector<NamedMaterial>(const std::string& path, const std::string& folder,
                                             std::vector<std::string>& notes)>
        read;
    std::function<void(const std::string& path, std::span<const NamedMaterial> materials,
                       std::vector<std::string>& notes)>
        write;
};

/// Does the job. Whether all of it went well; what did not was printed. Needs an application
/// object.
[[nodiscard]] bool RunLibraryJob(const LibraryJob& job, const ForeignFormats& formats);

}  // namespace studio
