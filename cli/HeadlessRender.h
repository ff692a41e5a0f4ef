#pragma once

#include "ProgramArguments.h"
#include "SceneReading.h"

namespace studio {

/// Draws the job's picture and writes it. Returns why that failed.
[[nodiscard]] std::optional<QString> DrawPicture(const RenderJob& job, const Remark& remark);

/// Writes the job's scene for the raytracer that its output's ending names. Returns why that
/// failed.
[[nodiscard]] std::optional<QString> ExportPicture(const RenderJob& job, const Remark& remark);

}  // namespace studio
