#pragma once

#include "ProgramArguments.h"
#include "SceneContent.h"

namespace studio {

/// Draws the job's picture and writes it. What it goes without, or why that failed, is told.
[[nodiscard]] ExitCode DrawPicture(const RenderJob& job);

/// The same with the job's scene, for the raytracer that its output's ending names.
[[nodiscard]] ExitCode ExportPicture(const RenderJob& job);

/// A document's own, as PNG; empty where nothing can be drawn.
[[nodiscard]] std::string DocumentPicture(const SceneContent& content);

}  // namespace studio
