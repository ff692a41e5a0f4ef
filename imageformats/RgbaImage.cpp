#include "RgbaImage.h"

namespace studio {

void CheckExtent(ImageExtent extent)
{
    if (extent.width == 0 || extent.height == 0) {
        throw ImageError("The image is empty.");
    }
    if (extent.width > kLongestImageSide || extent.height > kLongestImageSide ||
        extent.Pixels() > kMostImageBytes / 4) {
        throw ImageError("The image is too large.");
    }
}

RgbaImage BlankImage(ImageExtent extent)
{
    CheckExtent(extent);
    return {extent, std::vector<std::uint8_t>(extent.Pixels() * 4)};
}

}  // namespace studio
