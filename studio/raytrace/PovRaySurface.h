#pragma once

#include "studio/raytrace/RaytraceImages.h"
#include "studio/raytrace/TextStream.h"
#include "studio/render/Frame.h"

#include <string>

namespace studio {

/// Declares `name` as the item's POV-Ray material: what the material model and the six layers make
/// of it, or its stock texture. Errors: FileFailed, for an image that cannot be saved.
void DeclareSurface(TextStream& out, const std::string& name, const FrameItem& item,
                    RaytraceImages& images);

}  // namespace studio
