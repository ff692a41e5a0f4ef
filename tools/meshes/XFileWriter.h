#pragma once

#include "SurfaceMesh.h"

#include <iosfwd>

namespace media {

/// Writes the mesh as a text `.x` file: left-handed, clockwise fronts, v downward.
void WriteXFile(std::ostream& out, const SurfaceMesh& mesh);

}  // namespace media
