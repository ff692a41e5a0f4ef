#pragma once

#include "host/MaterialRecord.h"
#include "studio/interchange/EmbeddedPicture.h"
#include "studio/render/Mesh.h"

#include <QMatrix4x4>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace studio {

struct ImportedMesh {
    std::shared_ptr<const Mesh> mesh;
    std::size_t material = 0;  ///< index into ImportedModel::materials
    bool hasCoordinates = false;
};

/// One use of a mesh. A file may place one mesh many times.
struct ImportedShape {
    std::string name;
    std::size_t mesh = 0;  ///< index into ImportedModel::meshes
    QMatrix4x4 worldFromMesh;
};

/// What a model file holds: right-handed, counter-clockwise fronts, nodes flattened to shapes.
/// Every index is in range and every number finite.
struct ImportedModel {
    std::vector<CorvexDB::udtMaterial> materials;
    std::vector<ImportedMesh> meshes;
    std::vector<ImportedShape> shapes;
    /// Their wearers have no path for them yet, or one that is missing.
    std::vector<EmbeddedPicture> pictures;
    /// Vertices of one surface differ in colour; its material has their average.
    bool manyColours = false;
    /// A further file that it names and that is there but was not read, with the reason.
    std::string refusedFile;
};

/// A coordinate beyond this is taken for damage: squares of world distances still fit a float.
inline constexpr float kLargestCoordinate = 1.0e9F;

}  // namespace studio
