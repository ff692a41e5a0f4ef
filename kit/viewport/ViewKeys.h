#pragma once

#include "Camera.h"

#include <optional>

class QKeyEvent;

namespace studio {

/// Where a key moves the camera of a view of this size: arrows turn it round its target, with Shift
/// or Ctrl they pan, plus and minus zoom. Nothing for other keys.
[[nodiscard]] std::optional<Camera> MovedByKey(const Camera& camera, const QKeyEvent& key,
                                               QSizeF size, float homeDistance);

}  // namespace studio
