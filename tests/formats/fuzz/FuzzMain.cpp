#include "FuzzEntry.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    for (const FuzzTarget& target : kFuzzTargets) {
        if (target.name == FUZZ_TARGET) {
            target.entry(std::as_bytes(std::span(data, size)));
        }
    }
    return 0;
}
