#pragma once

#include "ProgramArguments.h"
#include "SceneReading.h"

namespace studio {

/// Draws the job's picture and writes it. It may throw, as the other.
void DrawPicture(const RenderJob& job, const Remark& remark);

/// Writes the job's scene for the raytracer that its output's ending names.
void ExportPicture(const RenderJob& job, const Remark& remark);

/// A document's own, as PNG; empty where nothing can be drawn.
[[nodiscard]] std::string DocumentPicture(const SceneContent& content);

}  // namespace studio
