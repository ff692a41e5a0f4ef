#pragma once

#include "studio/interchange/Report.h"
#include "studio/libraries/MaterialText.h"

#include <QByteArray>

#include <cstddef>
#include <vector>

namespace studio {

/// An image that is inside the file, as it is there.
struct EmbeddedPicture {
    QByteArray bytes;
    std::vector<std::size_t> wearers;  ///< indexes of the materials whose primary texture it is
};

struct ImportedMaterials {
    std::vector<NamedMaterial> materials;
    Report report;
    std::vector<EmbeddedPicture> pictures;
};

/// The form in which the importing process hands materials back.
[[nodiscard]] QByteArray PackMaterials(const ImportedMaterials& imported);
/// Trusts nothing: what is missing or of the wrong type is left out, every index is of a material.
/// Errors: FileFailed for what is no answer at all.
[[nodiscard]] ImportedMaterials UnpackMaterials(const QByteArray& bytes);

}  // namespace studio
