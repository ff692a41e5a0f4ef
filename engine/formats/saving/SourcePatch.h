#pragma once

#include "ImportedModel.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace studio {

/// Materials, and which of them each shape wears.
struct DressedShapes {
    std::vector<NamedMaterial> materials;
    std::vector<std::size_t> ofShape;
};

/// How a file was when it was read.
struct FileMark {
    std::string path;
    std::string identity;
};

/// A shape of a model file.
struct SourceShape {
    std::string name;
    VertexColours colours;
    std::int32_t node = -1;       ///< in a glTF document; -1 elsewhere
    std::int32_t primitive = -1;  ///< the same
};

/// A model file that materials can be saved back into, as it was read.
struct MaterialSource {
    std::string path;
    std::vector<FileMark> files;  ///< the model's, then those that were read with it
    DressedShapes asRead;         ///< in the order of the files, then one for plain shapes
    std::vector<SourceShape> shapes = {};
    std::vector<SaidColour> said = {};  ///< of the materials, where vertices have colours
};

[[noreturn]] void RefuseChanged(const std::string& path);
/// That the source has so many materials of its own. Errors: FileFailed.
void RequireOwnMaterials(const MaterialSource& source, std::size_t count);

/// Only what is to be written has its images in files of a type that the format knows.
enum class PatchFor { Showing, Writing };

struct PatchedFile {
    std::string path;
    QByteArray bytes;
};
struct SourcePatch {
    std::vector<PatchedFile> files;  ///< only those that change
    Report report;                   ///< what becomes of each change
};

}  // namespace studio
