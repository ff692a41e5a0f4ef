#include "FuzzEntry.h"
#include "OwnFormats.h"

#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    for (const studio::OwnFormat& format : studio::OwnFormats()) {
        if (format.name == std::string_view(FUZZ_FORMAT)) {
            FuzzDecoder(format, std::as_bytes(std::span(data, size)));
        }
    }
    return 0;
}
