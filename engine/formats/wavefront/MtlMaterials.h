#pragma once

#include "ExportedProperties.h"
#include "FileSet.h"
#include "ImportedModel.h"

#include <QByteArray>

#include <span>

namespace studio {

/// What MTL makes of our properties. Its colours are taken as displayed (sRGB).
[[nodiscard]] const FormatTable& MtlTable();

/// The materials of an MTL file; the path is for messages and to find images. Any bytes will do;
/// none may come of them. Errors: FileFailed when they are too many.
[[nodiscard]] std::vector<NamedMaterial> MaterialsOfMtl(const QByteArray& bytes,
                                                        const std::string& path, Report& report);

/// A file to be put into the folder.
[[nodiscard]] QByteArray MtlOf(std::span<const NamedMaterial> materials, const std::string& folder,
                               Report& report);
[[nodiscard]] QByteArray MtlWornBy(Wearers wearers, std::span<const NamedMaterial> materials,
                                   const std::string& folder, Report& report);

/// An .obj file with its .mtl beside it. Errors: FileFailed.
void WriteObjScene(const ImportedModel& scene, const std::string& path, Report& report,
                   CorvexMaterial::FileSet& files);

}  // namespace studio
