#pragma once

#include "Camera.h"

#include <QString>

#include <array>

namespace studio {

/// A direction to look from, with the target and the distance of the view that there is.
struct StandardView {
    const char* title;
    int key;  ///< on the number pad
    Qt::KeyboardModifiers modifiers;
    float yawDegrees;
    float pitchDegrees;

    [[nodiscard]] QString Title() const;
    [[nodiscard]] Camera Of(Camera camera) const;
};

[[nodiscard]] const std::array<StandardView, 6>& StandardViews();

}  // namespace studio
