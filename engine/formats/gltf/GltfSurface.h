#pragma once

#include "GltfFile.h"

#include <CorvexMaterial/MaterialRecord.h>

namespace studio {

/// Where a material tells of its base image; empty when it has none.
[[nodiscard]] QJsonObject BaseTexture(const QJsonObject& source);

/// The attribute of a mesh's corners that says where the material's base image lies.
[[nodiscard]] QString CoordinatesOf(const QJsonObject& source);

/// One material of a document. An image inside the file has its place, but is neither taken nor
/// noted; its number among the document's images comes back.
struct GltfSurface {
    CorvexDB::udtMaterial material;
    std::optional<qint64> imageInside;
};
[[nodiscard]] GltfSurface SurfaceOfGltf(const QJsonObject& source, const GltfFile& file,
                                        MaterialNotes notes);

}  // namespace studio
