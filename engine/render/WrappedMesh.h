#pragma once

#include "Frame.h"

namespace studio {

struct WrappedMesh {
    std::shared_ptr<const Mesh> mesh;
    bool bends = false;  ///< so much that images lie visibly elsewhere inside of some triangles
};

/// The item's mesh with the coordinates that its wrap makes, for those who know no wraps. Triangles
/// over which a round wrap bends are divided into smaller ones.
[[nodiscard]] WrappedMesh WithWrapCoordinates(const FrameItem& item);

}  // namespace studio
