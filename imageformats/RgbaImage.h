#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace studio {

struct ImageExtent {
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    [[nodiscard]] std::size_t Pixels() const { return std::size_t{width} * height; }
};

/// Eight bits each of red, green, blue and straight alpha; top row first, rows not padded.
struct RgbaImage {
    ImageExtent extent;
    std::vector<std::uint8_t> pixels;
};

/// Why a file is no image that can be read; the text is one sentence for a person.
class ImageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

constexpr std::uint32_t kLongestImageSide = 16384;
constexpr std::size_t kMostImageBytes = std::size_t{512} << 20;

/// Throws ImageError when a side is 0 or the image would be larger than the two limits. To be asked
/// before any memory is taken for what a header promises.
void CheckExtent(ImageExtent extent);

/// All pixels transparent black. Errors: those of CheckExtent.
RgbaImage BlankImage(ImageExtent extent);

}  // namespace studio
