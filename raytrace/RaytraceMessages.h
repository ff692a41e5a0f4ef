#pragma once

#include <string_view>

namespace CorvexMaterial {

// Fixed texts of the raytracer check, the jobs and their two users.

inline constexpr std::string_view kPovRayNotFound =
    "POVRay was not found. Corvex requires POVRay version 3.5 or higher. Would you like to visit "
    "the POVRay web site for this free download?";
inline constexpr std::string_view kRenderManNotFound =
    "A RenderMan compatible renderer was not found. Is there one currently installed on your "
    "system?";
inline constexpr std::string_view kSelectRenderMan =
    "Would you like to select your RenderMan compatible renderer?";
inline constexpr std::string_view kVisitRenderManSite =
    "Would you like to visit the Exluna web site to download their free Renderman compatible Blue "
    "Moon Rendering tools?";
inline constexpr std::string_view kRenderManDescription = "RenderMan Compatible Renderer";

inline constexpr std::string_view kNoTiffTextures =
    "POVRay does not support the use of TIF textures. This scene uses TIF textures.";
inline constexpr std::string_view kOnlyTiffTextures =
    "This raytracer requires the use of TIF textures. This scene uses non-TIF textures.";
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
