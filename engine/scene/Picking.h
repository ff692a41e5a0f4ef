#pragma once

#include "Camera.h"
#include "StudioShape.h"

#include <memory>
#include <optional>
#include <vector>

namespace studio {

struct PickHit {
    std::shared_ptr<StudioShape> shape;
    double distance = 0.0;  ///< from the ray's origin, in lengths of its direction
};

/// Where the ray first enters the shape, exact to its triangles. What is seen is what is hit: back
/// faces count for a double-sided material only.
[[nodiscard]] std::optional<double> HitDistance(const Ray& worldRay, const StudioShape& shape);

/// Locked shapes are seen, but let a pick through.
enum class PickAmong { Seen, Pickable };

/// The nearest shape that the ray hits, hidden ones left out; the earlier one of two at the same
/// distance.
[[nodiscard]] std::optional<PickHit>
PickNearest(const Ray& worldRay, const std::vector<std::shared_ptr<StudioShape>>& shapes,
            PickAmong among = PickAmong::Pickable);

}  // namespace studio
