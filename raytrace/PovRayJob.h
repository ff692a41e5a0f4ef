#pragma once

#include "host/CommandLine.h"

#include <cstdint>
#include <string>
#include <vector>

namespace CorvexMaterial {

/// What a POV-Ray run is told. Folders are given as the host writes them.
struct PovRaySettings {
    std::string sceneFile;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t antialias = 0;  ///< 0 off, 1 depth 2, any other value depth 4
    std::string sceneFolder;     ///< may be empty
    std::vector<std::string> folders;
};

struct PovRayIni {
    std::string text;
    /// Lines for the debug trace: which folders are searched.
    std::vector<std::string> trace;
};

/// A folder whose name has a line break cannot be said in such a file and is left out. Errors:
/// InvalidArgument when the scene file's own path has one.
[[nodiscard]] PovRayIni IniOf(const PovRaySettings& settings);

[[nodiscard]] CorvexDB::CommandLine PovRayCommandLine(const std::string& program,
                                                      const std::string& iniFile);

/// The image that belongs to a scene file: its name with the last three characters replaced.
[[nodiscard]] std::string BitmapOf(const std::string& sceneFile);

}  // namespace CorvexMaterial
