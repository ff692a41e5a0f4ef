#pragma once

#include "SurfaceDraft.h"

namespace studio {

/// A ray that has got inside a shape would be mirrored there again and again, the more so the more
/// it grazes. The inside of a sheet mirrors everywhere as it does straight on, so that little is
/// left of a ray after some turns; where only leaks of smoothed normals show it, it does not
/// mirror.
enum class MirrorSide { None, Inside, Outside };

/// Which of the things that images make gradual a texture has: one drawn with them and one without
/// are mixed.
struct FinishParts {
    bool shines = true;
    MirrorSide mirror = MirrorSide::Outside;
};

/// `finish { ... }`: how the surface answers to light.
void WriteFinish(TextStream& out, const SurfaceDraft& surface, FinishParts parts);

}  // namespace studio
