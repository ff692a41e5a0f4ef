#pragma once

#include "RgbaImage.h"

#include <cstddef>
#include <optional>
#include <span>

namespace studio {

/// Reads the largest image of a DDS file, of a cube its first face: colour, grey and alpha
/// described by bit masks, and the block kinds 1 to 5, with the old header and the new. Errors:
/// ImageError.
RgbaImage DecodeDds(std::span<const std::byte> file);

/// The size that a DDS header promises, within the limits; nothing when it is none.
std::optional<ImageExtent> DdsExtent(std::span<const std::byte> file);

}  // namespace studio
