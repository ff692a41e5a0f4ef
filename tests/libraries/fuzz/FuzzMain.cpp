#include "FuzzLibrary.h"

#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    const std::string path = folder.filePath("library").toStdString();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    FuzzLibrary(path);
    std::remove((path + "-journal").c_str());
    return 0;
}
