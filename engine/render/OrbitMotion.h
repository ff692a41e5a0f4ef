#pragma once

#include "Camera.h"

// What the mouse does to an orbit camera.

namespace studio {

/// A drag by so many pixels turns the scene with the hand; the camera never tips over the top.
[[nodiscard]] Camera Turned(Camera camera, QPointF pixels);
/// The target's plane follows the hand, in a picture of this size.
[[nodiscard]] Camera Panned(Camera camera, QPointF pixels, QSizeF size);
/// Positive steps come closer, within limits around the home distance.
[[nodiscard]] Camera Zoomed(Camera camera, float steps, float homeDistance);

}  // namespace studio
