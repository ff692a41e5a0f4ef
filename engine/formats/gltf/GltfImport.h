#pragma once

#include "ImportedModel.h"

namespace studio {

/// The content of a .gltf or .glb file, whose path is for messages and to find what it names.
/// Errors: FileFailed naming file and cause.
[[nodiscard]] ImportedModel ModelOfGltf(const QByteArray& bytes, const std::string& path);

/// The same of the file. Errors: as above.
[[nodiscard]] ImportedModel ReadGltf(const std::string& path);

}  // namespace studio
