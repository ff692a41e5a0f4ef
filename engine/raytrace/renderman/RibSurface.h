#pragma once

#include "RibTextures.h"
#include "TextStream.h"
#include <CorvexMaterial/MaterialRecord.h>

#include <set>
#include <string>

namespace studio {

struct RibSurface {
    const CorvexDB::udtMaterial& material;
    const SurfaceImages& layers;
    QVector4D crop;     ///< of `WrapTerms`
    bool dull = false;  ///< a light straight ahead would shine everywhere on a flat sample
};

/// Has the renderer make its environment map of the image that the surface mirrors, if it does and
/// the image is not among those made. Errors: FileFailed.
void WriteRibEnvironment(TextStream& out, const RibSurface& surface, RibTextures& textures,
                         std::set<std::string>& made);

/// Colour, opacity and one of the standard surface shaders. Returns whether the shader puts a tile
/// of `RibTextures` on the surface. Errors: FileFailed.
bool WriteRibSurface(TextStream& out, const RibSurface& surface, RibTextures& textures);

}  // namespace studio
