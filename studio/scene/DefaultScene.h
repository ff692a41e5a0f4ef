#pragma once

#include "studio/render/Camera.h"
#include "studio/scene/StudioScene.h"

namespace studio {

/// The shapes that the studio starts with.
[[nodiscard]] StudioScene::Shapes DefaultShapes();

/// The view of them that it starts with.
[[nodiscard]] Camera DefaultCamera();

}  // namespace studio
