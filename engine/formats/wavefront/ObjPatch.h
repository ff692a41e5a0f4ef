#pragma once

#include "SourcePatch.h"

namespace studio {

/// The libraries of the model with the materials as they are now, and the model where shapes wear
/// others.
[[nodiscard]] SourcePatch PatchOfObj(const MaterialSource& source, const DressedShapes& now,
                                     const QByteArray& bytes, PatchFor purpose);

}  // namespace studio
