#pragma once

#include "SurfaceDraft.h"

namespace studio {

/// Declares NAME_pigment: the surface's colour, which its images or its pattern vary. The images
/// are declared already.
void DeclarePigment(TextStream& out, const SurfaceDraft& surface);

}  // namespace studio
