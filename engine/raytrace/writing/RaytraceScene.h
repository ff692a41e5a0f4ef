#pragma once

#include "Frame.h"

#include <string>
#include <vector>

namespace studio {

/// Everything that a raytracer needs to see what a viewport shows.
struct RaytraceScene {
    Frame frame;                     ///< its size counts for the proportions only
    std::vector<std::string> names;  ///< of the items, in their order; may be shorter
    std::vector<std::string> customFieldNames;
    /// What the raytracer is to write in the folder it works in, for those that the scene tells;
    /// empty = the scene's name with their own ending.
    std::string picture;
    bool flat = false;  ///< a square with x and y from -1 to 1, seen and lit straight on
};

/// The first environment map that a shape mirrors; empty when none does.
[[nodiscard]] std::string SharedEnvironment(const RaytraceScene& scene);

}  // namespace studio
