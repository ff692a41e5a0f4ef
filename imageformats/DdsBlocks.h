#pragma once

#include "RgbaImage.h"

#include <cstddef>
#include <span>

namespace studio {

/// Ways of packing 4 by 4 pixels into a block of 8 or 16 bytes.
enum class BlockKind {
    Bc1,               ///< three or four colours, one of them may be clear
    Bc2,               ///< colours, and four bits of alpha for each pixel
    Bc2Premultiplied,  ///< the same, colours multiplied by alpha
    Bc3,               ///< colours, and alpha in between two values
    Bc3Premultiplied,
    Bc4,        ///< grey
    Bc4Signed,  ///< grey, from -1 to 1
    Bc5,        ///< x and y of a surface normal; z is worked out
    Bc5Signed,
};

[[nodiscard]] std::size_t BlockBytes(BlockKind kind);

/// Fills the image from its blocks, row by row of blocks, `blocks` being exactly the
/// ceil(width / 4) * ceil(height / 4) blocks it takes.
void UnpackBlocks(BlockKind kind, std::span<const std::byte> blocks, RgbaImage& image);

}  // namespace studio
