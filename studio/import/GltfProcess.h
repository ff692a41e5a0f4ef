#pragma once

#include "studio/import/Interchange.h"

#include <optional>
#include <vector>

namespace studio {

/// The argument that makes the program the one that imports materials.
inline constexpr const char* kImportMaterialsArgument = "--import-materials";

/// The materials of a glTF file, read by a process of its own: a file that crashes the importer
/// costs a message. Waits. Errors: FileFailed with a message that names file and cause.
[[nodiscard]] std::vector<NamedMaterial>
ImportGltfMaterials(const std::string& path, Report& report, const ImportSetting& setting);

/// The work of that process if the program was started for it, else nothing. To be called before
/// there is an application object.
[[nodiscard]] std::optional<int> RunMaterialImportIfAsked(int argc, char** argv);

}  // namespace studio
