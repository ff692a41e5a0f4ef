#include "studio/render/Frame.h"

namespace studio {

Bounds WorldBounds(const FrameItem& item)
{
    Bounds bounds;
    if (item.mesh && !item.mesh->bounds.Empty()) {
        for (const QVector3D& corner : item.mesh->bounds.Corners()) {
            bounds.Include(item.worldFromMesh.map(corner));
        }
    }
    return bounds;
}

Bounds WorldBounds(const std::vector<FrameItem>& items)
{
    Bounds bounds;
    for (const FrameItem& item : items) {
        bounds.Include(WorldBounds(item));
    }
    return bounds;
}

}  // namespace studio
