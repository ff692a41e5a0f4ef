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
    std::vector<Rgb> colours;  ///< of the vertices, or empty
};

struct ObjFile {
    std::vector<ObjPart> parts;          ///< none without triangles
    std::vector<std::string> libraries;  ///< statements that name them, each once
};

/// Reads any text as a Wavefront OBJ: what is not understood is passed over, with lines, points and
/// curved surfaces. Polygons become triangles.
[[nodiscard]] ObjFile ParseObj(std::string_view text);

}  // namespace studio
