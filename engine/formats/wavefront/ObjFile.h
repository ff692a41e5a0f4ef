#pragma once

#include "Amounts.h"
#include "MeshFinishing.h"

#include <string_view>

namespace studio {

/// What is of one group and one material.
struct ObjPart {
    std::string name;      ///< of the group or object; of the material when the group has several
    std::string material;  ///< as written, empty for none
    RawMesh mesh;
};

/// Faces of one part that follow each other.
struct ObjRun {
    std::size_t part = 0;
    std::size_t begin = 0;  ///< of the first one's line
};
/// A statement that names a material.
struct ObjUse {
    std::size_t begin = 0;
    std::size_t end = 0;  ///< with the end of its line
};

struct ObjFile {
    std::vector<ObjPart> parts;          ///< none without triangles
    std::vector<std::string> libraries;  ///< statements that name them, each once
    std::vector<ObjRun> runs;            ///< in the order of the text, as are the uses
    std::vector<ObjUse> uses;
};

/// Reads any text as a Wavefront OBJ: what is not understood is passed over, with lines, points and
/// curved surfaces. Polygons become triangles.
[[nodiscard]] ObjFile ParseObj(std::string_view text);

}  // namespace studio
