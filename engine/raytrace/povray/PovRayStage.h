#pragma once

#include "RaytraceImages.h"
#include "RaytraceScene.h"
#include "TextStream.h"

namespace studio {

// Everything of a scene but its shapes.

void WriteCamera(TextStream& out, const RaytraceScene& scene);
/// The lights of the material model, which go with the camera.
void WriteLights(TextStream& out, const RaytraceScene& scene);
/// The viewport's backdrop behind everything.
void WriteBackdrop(TextStream& out, const RaytraceScene& scene);
/// What mirrors show: the environment map of the first material that has one, else a plain sky.
void WriteSurroundings(TextStream& out, const RaytraceScene& scene, RaytraceImages& images);

}  // namespace studio
