#pragma once

#include "MaterialText.h"

#include <span>

class QJsonObject;

namespace studio {

/// Materials as one JSON document, with everything that a library keeps of them but the
/// thumbnails. Texture files are relative to the document's folder where possible.
/// Errors of both: FileFailed, naming the file. An existing file stays until the new one is whole.
void WriteMaterialDocument(const std::string& path, std::span<const NamedMaterial> materials);

/// Problems name the material.
[[nodiscard]] std::vector<NamedMaterial> ReadMaterialDocument(const std::string& path,
                                                              std::vector<std::string>& problems);

/// The details that are there, each by its key.
void AddDetails(QJsonObject& json, const EntryDetails& details);
[[nodiscard]] EntryDetails DetailsOfJson(const QJsonObject& json);

}  // namespace studio
