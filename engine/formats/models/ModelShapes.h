#pragma once

#include "ImportedModel.h"
#include "StudioScene.h"

namespace studio {

/// One shape for every use of a mesh in the model; shapes of one material share it.
[[nodiscard]] StudioScene::Shapes ShapesOf(const ImportedModel& model);

}  // namespace studio
