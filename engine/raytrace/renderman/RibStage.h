#pragma once

#include "RaytraceScene.h"
#include "TextStream.h"

#include <string>

namespace studio {

/// What picture to make and from where, up to `WorldBegin`.
void WriteRibHead(TextStream& out, const RaytraceScene& scene, const std::string& picture);
void WriteRibLights(TextStream& out, const RaytraceScene& scene);
/// Strips of plain colour behind everything: not every renderer has an imager shader.
void WriteRibBackdrop(TextStream& out, const RaytraceScene& scene);

/// Three numbers with blanks between them.
void WriteRibVector(TextStream& out, const QVector3D& vector);
/// RIB multiplies rows from the left.
void WriteRibTransform(TextStream& out, const QMatrix4x4& matrix);

}  // namespace studio
