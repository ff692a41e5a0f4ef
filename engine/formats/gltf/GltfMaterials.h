#pragma once

#include "ExportedProperties.h"
#include "FileSet.h"
#include "ImportedModel.h"

#include <QByteArray>

#include <span>

namespace studio {

/// What glTF makes of our properties. Its colours are light, its images as displayed.
[[nodiscard]] const FormatTable& GltfTable();

/// A .gltf file to be put into the folder: each material on a sphere of its own, in rows, since
/// readers pass over materials that nothing wears. Needs no other file but the images.
[[nodiscard]] QByteArray GltfOf(std::span<const NamedMaterial> materials, const std::string& folder,
                                Report& report);

/// A scene with its numbers in a .bin file beside it.
void WriteGltfScene(const ImportedModel& scene, const std::string& path, Report& report,
                    CorvexMaterial::FileSet& files);
/// A scene in one binary file with its numbers and images.
void WriteGlbScene(const ImportedModel& scene, const std::string& path, Report& report,
                   CorvexMaterial::FileSet& files);

}  // namespace studio
