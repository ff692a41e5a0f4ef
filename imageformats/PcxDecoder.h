#pragma once

#include "RgbaImage.h"

#include <cstddef>
#include <optional>
#include <span>

namespace studio {

/// Reads a PCX file: black and white, 4 and 16 colours in planes or packed, 256 colours, grey, 24
/// bit and 24 bit with alpha. Errors: ImageError.
RgbaImage DecodePcx(std::span<const std::byte> file);

/// The size that a PCX header promises, within the limits; nothing when it is none.
std::optional<ImageExtent> PcxExtent(std::span<const std::byte> file);

}  // namespace studio
