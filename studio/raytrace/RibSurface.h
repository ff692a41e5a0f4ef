#pragma once

#include "studio/raytrace/SurfaceImages.h"
#include "studio/raytrace/TextStream.h"
#include "studio/render/Frame.h"

namespace studio {

/// Colour, opacity and one of the standard surface shaders for the item's material.
void WriteRibSurface(TextStream& out, const FrameItem& item, const SurfaceImages& images);

}  // namespace studio
