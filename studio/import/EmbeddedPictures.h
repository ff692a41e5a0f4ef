#pragma once

#include "studio/import/MaterialPacking.h"

namespace studio {

/// Puts the pictures into `Textures/` in the folder, where their wearers find them from now on, and
/// reports it. Without a folder, and of what is no image, the material goes without. Errors:
/// FileFailed naming the picture.
void TakeOutPictures(ImportedMaterials& imported, const std::string& folder);

}  // namespace studio
