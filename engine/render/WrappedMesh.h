#pragma once

#include "Frame.h"

namespace studio {

struct WrappedMesh {
    std::shared_ptr<const Mesh> mesh;
    bool isExact = true;  ///< or images lie visibly elsewhere within some triangles
};

/// The item's mesh with the coordinates by which it is shown, for those who know no wraps and no
/// crops that repeat. Triangles over which a round wrap bends are divided into smaller ones, and
/// what is cropped is cut where its tiles end.
[[nodiscard]] WrappedMesh WithCoordinates(const FrameItem& item);

}  // namespace studio
