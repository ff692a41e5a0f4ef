#pragma once

#include "Camera.h"

// What pointer and keys do to an orbit camera. Each motion keeps a point of the world where it is
// in the picture, or under the hand.

namespace studio {

/// A drag by so many pixels turns the scene round the point with the hand; the camera never tips
/// over the top.
[[nodiscard]] Camera Turned(const Camera& camera, QPointF pixels, const QVector3D& pivot);
/// The point follows the hand, in a picture of this size.
[[nodiscard]] Camera Panned(Camera camera, QPointF pixels, QSizeF size, const QVector3D& held);
/// Positive steps come closer to the point. Beyond limits around the home distance it goes no
/// further.
[[nodiscard]] Camera Zoomed(Camera camera, float steps, const QVector3D& anchor,
                            float homeDistance);

/// Where a ray meets the plane through the target that the camera looks at straight on.
[[nodiscard]] QVector3D PointOnTargetPlane(const Camera& camera, const Ray& ray);

}  // namespace studio
