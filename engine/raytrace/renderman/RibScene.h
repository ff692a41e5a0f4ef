#pragma once

#include "RaytraceImages.h"
#include "RaytraceScene.h"
#include "TextStream.h"

#include <string>

namespace studio {

inline constexpr ImageReader kRibImages{"tiff", ".tif", "tiff", nullptr};

/// Writes the scene as a RIB for renderers of the RenderMan Interface 3.2, with no shaders but the
/// standard ones, so that it opens everywhere. Errors: FileFailed, for an image that cannot be
/// saved.
void WriteRibScene(TextStream& out, const RaytraceScene& scene, RaytraceImages& images);

}  // namespace studio
