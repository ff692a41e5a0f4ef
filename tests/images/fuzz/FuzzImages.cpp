#include "OwnFormats.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

// Decodes any bytes; a file that is refused is fine. Ends the process when the decoder breaks its
// promises.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto file = std::as_bytes(std::span(data, size));
    const auto format = std::ranges::find(studio::OwnFormats(), std::string_view(FUZZ_FORMAT),
                                          &studio::OwnFormat::name);
    const auto promised = format->extentOf(file);
    try {
        const studio::RgbaImage image = format->decode(file);
        const bool kept = promised && promised->width == image.extent.width &&
                          promised->height == image.extent.height;
        if (!kept || image.pixels.size() != image.extent.Pixels() * 4 ||
            image.pixels.size() > studio::kMostImageBytes) {
            std::abort();
        }
    } catch (const studio::ImageError&) {
        return 0;
    }
    return 0;
}
