#pragma once

#include "Camera.h"
#include "StudioShape.h"

#include <QRectF>

#include <memory>
#include <vector>

namespace studio {

/// Which shapes a box around them means.
enum class BoxRule {
    Touching,  ///< those of which any part is in it
    Inside,    ///< those that are in it as a whole
};

/// A box in a view of this size, origin at its top left.
struct PickBox {
    Camera camera;
    QSizeF view;
    QRectF box;
    BoxRule rule = BoxRule::Touching;
};

/// The shapes in the box, exact to their triangles, in the order of the scene; those behind others
/// too, hidden and locked ones not. Back faces count for a double-sided material only.
[[nodiscard]] std::vector<std::shared_ptr<StudioShape>>
PickInBox(const PickBox& pick, const std::vector<std::shared_ptr<StudioShape>>& shapes);

}  // namespace studio
