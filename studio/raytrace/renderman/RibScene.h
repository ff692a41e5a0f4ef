#pragma once

#include "studio/raytrace/writing/RaytraceImages.h"
#include "studio/raytrace/writing/RaytraceScene.h"
#include "studio/raytrace/writing/TextStream.h"

#include <string>

namespace studio {

/// Writes the scene as a RIB for renderers of the RenderMan Interface 3.2, with no shaders but the
/// standard ones, so that it opens everywhere. `picture` is the image that the renderer is to
/// write, relative to the folder it works in. Errors: FileFailed, for an image that cannot be
/// saved.
void WriteRibScene(TextStream& out, const RaytraceScene& scene, RaytraceImages& images,
                   const std::string& picture);

}  // namespace studio
