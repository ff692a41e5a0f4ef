#pragma once

#include "SourcePatch.h"

namespace studio {

/// The document with the materials as they are now; what nobody changed keeps its bytes.
[[nodiscard]] SourcePatch PatchOfGltf(const MaterialSource& source, const DressedShapes& now,
                                      const QByteArray& bytes, PatchFor purpose);

}  // namespace studio
