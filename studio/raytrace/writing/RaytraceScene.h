#pragma once

#include "studio/render/Frame.h"

#include <string>
#include <vector>

namespace studio {

/// Everything that a raytracer needs to see what a viewport shows.
struct RaytraceScene {
    Frame frame;                     ///< its size counts for the proportions only
    std::vector<std::string> names;  ///< of the items, in their order; may be shorter
    std::vector<std::string> customFieldNames;
    /// What a RenderMan renderer is to write, beside the scene; empty = the scene's name with .tif.
    std::string picture;
    bool flat = false;  ///< a square with x and y from -1 to 1, seen and lit straight on
};

}  // namespace studio
