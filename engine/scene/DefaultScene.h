#pragma once

#include "Camera.h"
#include "StudioScene.h"

#include <functional>
#include <optional>
#include <string>

namespace studio {

/// The material of this name, if there is one.
using MaterialNamed = std::function<std::optional<CorvexDB::udtMaterial>(const std::string& name)>;

/// The shapes that the studio starts with, dressed from a library; in plain colours where it lacks
/// a material.
[[nodiscard]] StudioScene::Shapes DefaultShapes(const MaterialNamed& library = {});

/// The view of them that it starts with.
[[nodiscard]] Camera DefaultCamera();

}  // namespace studio
