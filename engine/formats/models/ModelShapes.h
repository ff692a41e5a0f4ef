#pragma once

#include "ImportedModel.h"
#include "StudioScene.h"

#include <stop_token>

namespace studio {

/// One shape for every use of a mesh in the model; shapes of one material share it.
[[nodiscard]] StudioScene::Shapes ShapesOf(const ImportedModel& model);

/// The reverse, for a program that knows no wraps: coordinates that a wrap makes are made into
/// meshes. A shape without a surface is left out, and the report says so. Errors: Failed, when a
/// stop is asked for.
[[nodiscard]] ImportedModel ModelOf(const StudioScene::Shapes& shapes,
                                    const std::stop_token& stop = {});

}  // namespace studio
