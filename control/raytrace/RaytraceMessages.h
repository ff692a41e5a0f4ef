#pragma once

#include <string_view>

namespace CorvexMaterial {

// Fixed texts of the jobs and their two users. Those of a raytracer are in its row.

inline constexpr std::string_view kRaytracerFailed =
    "Errors occurred while Raytracing. It may be that your raytracer is not configured properly or "
    "Corvex is having difficulty finding associated textures. Textures should be in the same "
    "folder as your Corvex scene or in the Corvex Media\\Textures folder.";
inline constexpr std::string_view kPreviewFailed =
    "An error occurred while raytracing. Restarting your system may resolve this problem. Corvex "
    "will now close.";
inline constexpr std::string_view kJpegWriterMissing =
    "In order to use this feature Microsoft's GDI+ must be installed. It can be downloaded free of "
    "charge from Microsoft's web site; on Linux make sure that Qt's JPEG plug-in is installed "
    "instead.";

}  // namespace CorvexMaterial
