#include "LibraryFile.h"
#include "LibraryQuery.h"
#include "LibraryReading.h"
#include <CorvexMaterial/Status.h>

#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

using studio::LibraryFile;

constexpr std::int32_t kMostEntries = 50;

template <typename Work>
void Try(const Work& work)
{
    try {
        work();
    } catch (const CorvexMaterial::Error& error) {
        if (std::string(error.what()).find("Library '/") == std::string::npos) {
            std::abort();
        }
    }
}

void ReadEntries(LibraryFile& library)
{
    for (std::int32_t index = 0; index < std::min(library.Count(), kMostEntries); ++index) {
        Try([&] { static_cast<void>(library.NameAt(index)); });
        Try([&] { static_cast<void>(library.ThumbnailAt(index)); });
        Try([&] { static_cast<void>(studio::ReadMaterial(library, index)); });
        Try([&] { static_cast<void>(studio::ReadTexture(library, index)); });
    }
}

void Search(LibraryFile& library)
{
    const auto query = studio::ReadLibraryQuery("-a color~gold -has:bump -plugin:x -specular>5");
    for (const auto index : library.Search(std::get<studio::LibraryQuery>(query))) {
        if (index < 0 || index >= library.Count()) {
            std::abort();
        }
    }
}

void Change(LibraryFile& library)
{
    const studio::EntryId id = library.Add(studio::EntryOfMaterial({"new", {}}, "/"));
    if (library.IndexOf(id) != library.Count() - 1) {
        std::abort();
    }
    library.Remove(library.IdAt(0));
    library.EmptyTrash();
}

}  // namespace

// Opens any bytes as a library of either kind and does everything with it that the studio does;
// being refused is fine. Ends the process when a promise is broken.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    const std::string path = folder.filePath("library").toStdString();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    for (const auto kind : {studio::LibraryKind::Materials, studio::LibraryKind::Textures}) {
        Try([&] {
            LibraryFile library = LibraryFile::Open(path, kind);
            ReadEntries(library);
            Try([&] { Search(library); });
            Try([&] { static_cast<void>(library.Trash()); });
            Try([&] { static_cast<void>(library.StructureProblems()); });
            Try([&] { Change(library); });
        });
    }
    std::remove((path + "-journal").c_str());
    return 0;
}
