#pragma once

#include <string>

namespace studio {

/// The path under which a material of a library in this folder finds its primary texture again. The
/// picture of a simulated raytrace material lies in the temporary folder, where it does not last:
/// it is copied to `Textures/` beside the library. Any other path stays. Errors: FileFailed.
[[nodiscard]] std::string WithLastingPicture(const std::string& primary,
                                             const std::string& libraryFolder);

}  // namespace studio
