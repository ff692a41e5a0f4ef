#pragma once

#include "ImportedModel.h"

namespace studio {

/// A file of any format that Assimp knows, in this very process, in which a damaged file may end
/// it: only for our own files, and for a process made for it. Errors: FileFailed naming file and
/// reason, OutOfMemory.
[[nodiscard]] ImportedModel ReadWithAssimp(const std::string& path);

/// Only the shapes of the file: the model has its materials, which are found by their names, and
/// behind them one for what has none. Errors: as above.
[[nodiscard]] ImportedModel WithAssimpShapes(const std::string& path, ImportedModel model);

}  // namespace studio
