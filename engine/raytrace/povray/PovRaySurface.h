#pragma once

#include "Frame.h"
#include "RaytraceImages.h"
#include "TextStream.h"

#include <string>

namespace studio {

/// Whether rays can meet the inside of a shape.
enum class ShapeInside { Hidden, Met };

/// Declares `name` as the item's POV-Ray material: what the material model and the six layers make
/// of it, or its stock texture. Returns the texture of its inside, declared too, or nothing when
/// that is the same. Errors: FileFailed, for an image that cannot be saved.
[[nodiscard]] std::string DeclareSurface(TextStream& out, const std::string& name,
                                         const FrameItem& item, ShapeInside inside,
                                         RaytraceImages& images);

}  // namespace studio
