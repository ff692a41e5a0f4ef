#pragma once

#include "ProgramArguments.h"

#include <functional>

namespace studio {

/// Is told what the picture goes without.
using Remark = std::function<void(const QString&)>;

/// Draws the job's picture and writes it. Returns why that failed.
[[nodiscard]] std::optional<QString> DrawPicture(const RenderJob& job, const Remark& remark);

/// Writes the job's scene for the raytracer that its output's ending names. Returns why that
/// failed.
[[nodiscard]] std::optional<QString> ExportPicture(const RenderJob& job, const Remark& remark);

}  // namespace studio
