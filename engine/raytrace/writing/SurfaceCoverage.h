#pragma once

#include "Frame.h"
#include "RaytraceImages.h"

#include <string_view>

namespace studio {

/// What an alpha test keeps, by where alpha lies beside the reference.
struct KeptSides {
    bool below;
    bool at;
    bool above;
};
[[nodiscard]] KeptSides KeptBy(std::string_view comparison);

/// Whether the alpha test leaves nothing of this item, wherever its images put it.
[[nodiscard]] bool IsTestedAway(const FrameItem& item, RaytraceImages& images);

/// Whether something behind the item's surface can be seen through it.
[[nodiscard]] bool IsSeenThrough(const FrameItem& item, RaytraceImages& images);

}  // namespace studio
