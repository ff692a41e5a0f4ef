#pragma once

#include "RgbaImage.h"

#include <cstddef>
#include <optional>
#include <span>

namespace studio {

/// Reads a Targa file: colour-mapped, true colour and grey, plain and run-length encoded, in any of
/// the four origins. Errors: ImageError.
RgbaImage DecodeTga(std::span<const std::byte> file);

/// The size that a Targa header at this place promises, within the limits; nothing when it is none.
/// The format has no signature: other files can pass for it.
std::optional<ImageExtent> TgaExtent(std::span<const std::byte> file);

}  // namespace studio
