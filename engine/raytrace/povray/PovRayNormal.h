#pragma once

#include "SurfaceDraft.h"

namespace studio {

/// Declares NAME_normal when the surface has a normal pattern, a bump map or heights in its primary
/// texture; returns whether. Errors: FileFailed, for heights that cannot be saved.
[[nodiscard]] bool DeclareNormal(TextStream& out, const SurfaceDraft& surface,
                                 RaytraceImages& store);

}  // namespace studio
