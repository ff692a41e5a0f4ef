#pragma once

#include "studio/raytrace/SurfaceDraft.h"

namespace studio {

/// Which of the things that images make gradual a texture has: one drawn with them and one without
/// are mixed.
struct FinishParts {
    bool shines = true;
    bool mirrors = true;
};

/// `finish { ... }`: how the surface answers to light.
void WriteFinish(TextStream& out, const SurfaceDraft& surface, FinishParts parts);

}  // namespace studio
