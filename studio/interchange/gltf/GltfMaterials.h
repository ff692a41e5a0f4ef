#pragma once

#include "studio/import/MaterialPacking.h"
#include "studio/interchange/ExportedProperties.h"

#include <QByteArray>

namespace studio {

/// What glTF makes of our properties. Its colours are light, its images as displayed.
[[nodiscard]] const FormatTable& GltfTable();

/// A .gltf file to be put into the folder: each material on a sphere of its own, in rows, since
/// readers pass over materials that nothing wears. Needs no other file but the images.
[[nodiscard]] QByteArray GltfOf(std::span<const NamedMaterial> materials, const std::string& folder,
                                Report& report);

/// The materials of a model file that something wears, and the pictures inside it, through the
/// model importer. It may crash on a damaged file: only for a process made for it. Errors:
/// FileFailed naming file and reason.
[[nodiscard]] ImportedMaterials ReadWornMaterials(const std::string& path);

}  // namespace studio
