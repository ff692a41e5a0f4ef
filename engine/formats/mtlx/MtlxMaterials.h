#pragma once

#include "ExportedProperties.h"
#include "ImportedModel.h"

#include <QByteArray>

#include <span>

namespace studio {

/// What MaterialX makes of our properties: a standard_surface and its images. Its colours are light
/// with the primaries of sRGB (lin_rec709), images of colours are as displayed (srgb_texture).
[[nodiscard]] const FormatTable& MtlxTable();

/// The materials of a document of version 1.36 to 1.39; the path is for messages and to find
/// images. Documents that it includes are not read. Errors: FileFailed naming file and cause.
[[nodiscard]] std::vector<NamedMaterial> MaterialsOfMtlx(const QByteArray& bytes,
                                                         const std::string& path, Report& report);

/// The same of the file. Errors: as above.
[[nodiscard]] ImportedModel ReadMtlx(const std::string& path);

/// A document of version 1.38 to be put into the folder.
[[nodiscard]] QByteArray MtlxOf(std::span<const NamedMaterial> materials, const std::string& folder,
                                Report& report);

}  // namespace studio
