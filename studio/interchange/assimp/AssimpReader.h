#pragma once

#include "studio/interchange/ImportedModel.h"

#include <memory>
#include <string>

namespace studio {

/// Reads a model file in this very process, in which a damaged file may end it: only for our own
/// files, and for a process made for it. Errors: FileFailed naming file and reason, OutOfMemory.
[[nodiscard]] ImportedModel ReadModelFile(const std::string& path);

/// Every shape of the file as one mesh in world coordinates. Errors: as above.
[[nodiscard]] std::shared_ptr<const Mesh> ReadMeshFile(const std::string& path);

}  // namespace studio
