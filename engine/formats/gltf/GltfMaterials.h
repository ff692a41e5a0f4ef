#pragma once

#include "ExportedProperties.h"
#include "MaterialText.h"

#include <QByteArray>

#include <span>

namespace studio {

/// What glTF makes of our properties. Its colours are light, its images as displayed.
[[nodiscard]] const FormatTable& GltfTable();

/// A .gltf file to be put into the folder: each material on a sphere of its own, in rows, since
/// readers pass over materials that nothing wears. Needs no other file but the images.
[[nodiscard]] QByteArray GltfOf(std::span<const NamedMaterial> materials, const std::string& folder,
                                Report& report);

}  // namespace studio
