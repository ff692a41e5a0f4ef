#pragma once

#include "MaterialText.h"
#include "Mesh.h"
#include "Report.h"
#include "VertexColours.h"

#include <QByteArray>
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
    std::int32_t sourcePrimitive = -1;  ///< its number in a glTF document's mesh; -1 elsewhere
    VertexColours colours = {};
};

/// One use of a mesh. A file may place one mesh many times.
struct ImportedShape {
    std::string name;
    std::size_t mesh = 0;  ///< index into ImportedModel::meshes
    QMatrix4x4 worldFromMesh;
    std::int32_t sourceNode = -1;  ///< its number in a glTF document; -1 elsewhere
};

/// An image that is inside a file, as it is there.
struct EmbeddedPicture {
    QByteArray bytes;
    std::vector<std::size_t> wearers;  ///< indexes of the materials whose primary texture it is
};

/// What a file of another program holds, whatever its format and whether its shapes are wanted or
/// its materials: right-handed, counter-clockwise fronts, nodes flattened to shapes. Every index is
/// in range and every number finite.
struct ImportedModel {
    std::vector<NamedMaterial> materials;
    /// Of the materials, where vertices have colours of their own; else empty.
    std::vector<SaidColour> said;
    /// What became of the materials' properties, and of what else the file names.
    Report report;
    std::vector<ImportedMesh> meshes;
    std::vector<ImportedShape> shapes;
    /// Files beside the model that are read with it, but for images: those that hold the materials
    /// of an OBJ, in their order; they may be missing.
    std::vector<std::string> files;
    /// Their wearers have no path for them yet, or one that is missing.
    std::vector<EmbeddedPicture> pictures;
};

/// What a report calls the primary texture of a file that does not name it itself.
inline constexpr const char* kBaseImage = "baseColorTexture";

/// A coordinate beyond this is taken for damage: squares of world distances still fit a float.
inline constexpr float kLargestCoordinate = 1.0e9F;

}  // namespace studio
