#pragma once

#include "ExportedProperties.h"

#include <span>

class QJsonObject;

namespace studio {

class GltfImages;

/// A material as the format writes it.
[[nodiscard]] QJsonObject GltfMaterialOf(const NamedMaterial& named, GltfImages& images,
                                         ExportNotes& notes);

/// Adds the materials to a document and to the images, and the extensions that they make use of.
void PutGltfMaterials(std::span<const NamedMaterial> materials, Wearers wearers, GltfImages& images,
                      QJsonObject& document, Report& report);

}  // namespace studio
