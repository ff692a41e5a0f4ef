#pragma once

#include "host/RaytraceAttributes.h"

#include <QVector3D>

#include <cstdint>
#include <string_view>

namespace studio {

/// A stock texture of POV-Ray's include files.
struct PovRayMaterial {
    std::string_view include;  ///< file name
    std::string_view text;     ///< inside of a `material` block
    float scale = 1.0F;        ///< in the space of a shape whose longest side runs from -1 to 1
};

/// A pattern of POV-Ray, laid into the same space.
struct PovRayPattern {
    std::string_view text;
    bool blocks = false;  ///< areas side by side, no gradual change: no frequency as colours
    float scale = 1.0F;
    QVector3D place{};       ///< of the pattern's origin
    float strength = 1.0F;   ///< of a normal pattern: POV-Ray's own slopes differ widely
    float frequency = 1.0F;  ///< of a normal pattern: waves within its scale
};

// By position in the lists of the raytrace catalogue; null for one that is not there, and for
// "None", or for a material that is not predefined.
[[nodiscard]] const PovRayMaterial*
StockMaterialOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);
[[nodiscard]] const PovRayPattern* FindColourPattern(std::int32_t pattern);
[[nodiscard]] const PovRayPattern* FindNormalPattern(std::int32_t pattern);

}  // namespace studio
