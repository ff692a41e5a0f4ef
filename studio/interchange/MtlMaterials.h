#pragma once

#include "studio/interchange/ExportedProperties.h"

#include <QByteArray>

namespace studio {

/// What MTL makes of our properties. Its colours are taken as displayed (sRGB).
[[nodiscard]] const FormatTable& MtlTable();

/// The materials of an MTL file in the folder. Any bytes will do; none may come of them.
[[nodiscard]] std::vector<NamedMaterial> MaterialsOfMtl(const QByteArray& bytes,
                                                        const std::string& folder, Report& report);

/// A file to be put into the folder.
[[nodiscard]] QByteArray MtlOf(std::span<const NamedMaterial> materials, const std::string& folder,
                               Report& report);

}  // namespace studio
