#pragma once

#include "SurfaceDraft.h"

namespace studio {

/// The expression for how much of the surface its images leave, after the alpha test. Empty when
/// images take nothing away.
[[nodiscard]] std::string CoverageText(const SurfaceDraft& surface);

}  // namespace studio
