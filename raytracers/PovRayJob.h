#pragma once

#include "Raytracers.h"

#include <array>

namespace CorvexMaterial {

/// With a file of settings in the host's folders, whose names are given as the host writes them. A
/// folder whose name has a line break cannot be said in such a file and is left out. Errors:
/// InvalidArgument when the scene file's own path has one.
[[nodiscard]] RenderStart PovRayStart(const RenderTask& task, CorvexDB::ApplicationState& state);

[[nodiscard]] CorvexDB::CommandLine PovRayCommandLine(const RenderTask& task);

/// Of a line "Rendered N of M pixels (P%)".
[[nodiscard]] std::optional<int> PovRayPercentIn(std::string_view line);

inline constexpr std::array<std::string_view, 5> kPovRayComplaints{
    "Parse Error", "cannot allocate", "Fatal error", "Cannot ", "Unknown "};

inline constexpr std::array kNotOfPovRay{RaytraceOption::OtherEnvironment,
                                         RaytraceOption::PatternedBump};

inline constexpr RaytracerRow kPovRay{
    .kind = CorvexDB::Raytracer::PovRay,
    .word = "povRay",
    .name = "POV-Ray",
    .program = {.noun = "POV-Ray 3.7",
                .label = "&POV-Ray",
                .usualName = "povray",
                .variable = "CORVEX_POVRAY",
                .locationKey = {},
                .launcher = "corvex-povray",
                .launcherVariable = "CORVEX_POVRAY_LAUNCHER"},
    .check = {.notFound = "POVRay was not found. Corvex requires POVRay version 3.5 or higher. "
                          "Would you like to visit the POVRay web site for this free download?",
              .select = {},
              .visit = {},
              .chooserDescription = {},
              .site = CorvexDB::WebSite::PovRay,
              .hintKey = "POVRayConfiguration"},
    .scene = {.suffix = "pov",
              .pictureSuffix = "png",
              .title = "&POV-Ray Scene",
              .filter = "POV-Ray scenes",
              .tiff = TiffRule::NoTiff,
              .wrongTextures = "POVRay does not support the use of TIF textures. This scene uses "
                               "TIF textures."},
    .panelStart = PovRayStart,
    .plainStart = PovRayCommandLine,
    .output = {.percentIn = PovRayPercentIn,
               .complaints = kPovRayComplaints,
               .usual = "user configuration file",
               .exitCodeTells = true},
    .rendersUnasked = true,
    .cannotShow = kNotOfPovRay,
};

}  // namespace CorvexMaterial
