#pragma once

#include "SceneContent.h"

#include <string>
#include <utility>
#include <vector>

namespace studio {

/// A scene with the shapes of a model that was read anew.
struct ReloadedScene {
    SceneContent content;
    std::vector<std::string> added;
    std::vector<std::string> removed;
    std::vector<std::pair<std::string, std::string>> renamed;  ///< former and present name
};

/// The shapes that were read, dressed as those of the scene: one keeps the material, the way its
/// coordinates are made, its facets and how far it was moved of the shape with its name, the first
/// of the first where several have one name. Those without such a one keep that of a shape with the
/// same triangles in the same box, which was renamed then. An added shape wears the scene's
/// material of the name that its own has, if there is one. Camera and selection stay.
[[nodiscard]] ReloadedScene Reloaded(const SceneContent& scene, std::vector<ShapeState> read,
                                     const SourceModel& source);

}  // namespace studio
