#pragma once

#include "studio/interchange/EmbeddedPicture.h"
#include "studio/interchange/Report.h"
#include "studio/libraries/MaterialText.h"

#include <QByteArray>

#include <cstddef>
#include <vector>

namespace studio {

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
