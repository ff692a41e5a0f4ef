#pragma once

#include "GltfFile.h"
#include "ImportedModel.h"

namespace studio {

/// The shapes of the document's scene with their meshes. A primitive that names no material gets
/// `plainMaterial`.
void AddGltfShapes(GltfFile& file, std::size_t plainMaterial, ImportedModel& model);

}  // namespace studio
