#pragma once

#include "GltfFile.h"
#include "VertexColours.h"

namespace studio {

/// The shapes of the document's scene with their meshes. A primitive that names no material gets
/// `plainMaterial`.
void AddGltfShapes(GltfFile& file, std::size_t plainMaterial, ImportedModel& model,
                   VertexColours& colours);

}  // namespace studio
