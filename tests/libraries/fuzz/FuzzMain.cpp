#include "tests/libraries/fuzz/FuzzLibrary.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string path = std::filesystem::temp_directory_path() / "fuzzed-library";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    FuzzLibrary(path);
    std::filesystem::remove(path + "-journal");
    return 0;
}
