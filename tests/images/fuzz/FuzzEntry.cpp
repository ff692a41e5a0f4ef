#include "FuzzEntry.h"

#include "OwnFormats.h"

#include <cstdlib>

void FuzzDecoder(const studio::OwnFormat& format, std::span<const std::byte> file)
{
    const auto promised = format.extentOf(file);
    try {
        const studio::RgbaImage image = format.decode(file);
        const bool kept = promised && promised->width == image.extent.width &&
                          promised->height == image.extent.height;
        if (!kept || image.pixels.size() != image.extent.Pixels() * 4 ||
            image.pixels.size() > studio::kMostImageBytes) {
            std::abort();
        }
    } catch (const studio::ImageError&) {
        return;
    }
}
