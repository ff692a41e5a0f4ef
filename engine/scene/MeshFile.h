#pragma once

#include "Mesh.h"

#include <memory>
#include <string>

namespace studio {

/// Every shape of a file as one mesh in world coordinates. Done where the formats are known, in
/// this very process: for our own files only. Errors: FileFailed naming file and reason,
/// OutOfMemory.
[[nodiscard]] std::shared_ptr<const Mesh> ReadMeshFile(const std::string& path);

}  // namespace studio
