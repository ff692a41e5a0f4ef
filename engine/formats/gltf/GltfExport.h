#pragma once

#include "ExportedProperties.h"

#include <span>

class QJsonObject;

namespace studio {

class GltfImages;

/// Adds the materials to a document and to the images, and the extensions that they make use of.
void PutGltfMaterials(std::span<const NamedMaterial> materials, Wearers wearers, GltfImages& images,
                      QJsonObject& document, Report& report);

}  // namespace studio
