#pragma once

#include "Raytracers.h"

#include <array>

namespace CorvexMaterial {

[[nodiscard]] RenderStart RenderManStart(const RenderTask& task, CorvexDB::ApplicationState& state);
[[nodiscard]] CorvexDB::CommandLine RenderManCommandLine(const RenderTask& task);

inline constexpr std::array<std::string_view, 4> kRenderManComplaints{
    "cannot allocate", "Fatal error", "Cannot ", "Unknown "};

/// Such a renderer is sure to have the shaders `matte`, `plastic`, `metal`, `shinymetal` and
/// `paintedplastic` only, so it shows what those can say.
inline constexpr std::array kNotOfRenderMan{
    RaytraceOption::Brilliance,          // no shader has an exponent for its diffuse part
    RaytraceOption::Iridescence,         // needs a shader of one's own
    RaytraceOption::ColorPattern,        // paintedplastic takes images only
    RaytraceOption::NormalPattern,       // there is no displacement shader to rely on
    RaytraceOption::PredefinedMaterial,  // stock textures of POV-Ray
    RaytraceOption::AlphaMap,           RaytraceOption::BumpMap,
    RaytraceOption::SpecularMap,        RaytraceOption::EnvironmentOnImage,
};

inline constexpr RaytracerRow kRenderMan{
    .kind = CorvexDB::Raytracer::RenderMan,
    .word = "renderMan",
    .name = "RenderMan",
    .program = {.noun = "RenderMan renderer",
                .label = "Render&Man renderer",
                .usualName = {},
                .variable = "CORVEX_RENDERMAN",
                .locationKey = "RenderManLocation",
                .launcher = {},
                .launcherVariable = {}},
    .check = {.notFound = "A RenderMan compatible renderer was not found. Is there one currently "
                          "installed on your system?",
              .select = "Would you like to select your RenderMan compatible renderer?",
              .visit = "Would you like to visit the Exluna web site to download their free "
                       "Renderman compatible Blue Moon Rendering tools?",
              .chooserDescription = "RenderMan Compatible Renderer",
              .site = CorvexDB::WebSite::RenderMan,
              .hintKey = {}},
    .scene = {.suffix = "rib",
              .pictureSuffix = "tif",
              .title = "&RIB",
              .filter = "RenderMan scenes",
              .tiff = TiffRule::OnlyTiff,
              .wrongTextures = "This raytracer requires the use of TIF textures. This scene uses "
                               "non-TIF textures."},
    .panelStart = RenderManStart,
    .plainStart = RenderManCommandLine,
    .output = {.percentIn = nullptr,
               .complaints = kRenderManComplaints,
               .usual = {},
               .exitCodeTells = false},
    .cannotShow = kNotOfRenderMan,
};

}  // namespace CorvexMaterial
