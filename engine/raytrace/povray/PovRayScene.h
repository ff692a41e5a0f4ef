#pragma once

#include "PovRayImageFile.h"
#include "RaytraceImages.h"
#include "RaytraceScene.h"
#include "TextStream.h"

namespace studio {

inline constexpr ImageReader kPovRayImages{"png", ".png", "png", PovRayTypeOf};

/// Writes the scene for POV-Ray 3.7: what the viewport shows, in light, camera, backdrop and
/// materials. Errors: FileFailed, for an image that cannot be saved.
void WritePovRayScene(TextStream& out, const RaytraceScene& scene, RaytraceImages& images);

}  // namespace studio
