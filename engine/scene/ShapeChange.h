#pragma once

#include "StudioShape.h"

#include <functional>
#include <memory>
#include <vector>

namespace studio {

/// What one edit did to one shape.
struct ShapeChange {
    std::shared_ptr<StudioShape> shape;
    AppliedMaterial before;
    AppliedMaterial after;
};

using ShapeList = std::vector<std::shared_ptr<StudioShape>>;

/// What an edit of the record does to each of the shapes that it changes; those that share a
/// material go on sharing it.
[[nodiscard]] std::vector<ShapeChange>
ChangesBy(const std::function<void(CorvexDB::udtMaterial&)>& edit, const ShapeList& shapes);

}  // namespace studio
