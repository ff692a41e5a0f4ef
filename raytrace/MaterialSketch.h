#pragma once

#include "host/MaterialRecord.h"

#include <cstdint>
#include <vector>

namespace CorvexMaterial {

enum class SketchQuality {
    Quick,  ///< one look at each pixel
    Fine,   ///< four, where pixels are large enough to be seen
};

/// A quick picture of a material with its raytrace attributes: a lit sphere with an approximation
/// of the patterns and the finish. Square, row by row from the top, each pixel 0xffRRGGBB; the side
/// is at least 1.
[[nodiscard]] std::vector<std::uint32_t> SketchMaterial(const CorvexDB::udtMaterial& material,
                                                        int side, SketchQuality quality);

}  // namespace CorvexMaterial
