#pragma once

#include "ImportedModel.h"

namespace studio {

/// Puts the pictures into `Textures/` in the folder, each under the name of the first material that
/// wears it, where their wearers find them from now on, and reports it. Without a folder, and of
/// what is no image or cannot be written, the material goes without.
void TakeOutPictures(ImportedModel& model, const std::string& folder);

}  // namespace studio
