#include "studio/libraries/LibraryReading.h"

#include "host/Status.h"
#include "studio/libraries/LibraryError.h"
#include "studio/libraries/LibraryFile.h"
#include "studio/libraries/StoredPath.h"
#include "studio/libraries/TextureText.h"

namespace studio {
namespace {

template <typename Read>
auto ReadEntry(LibraryFile& library, std::int32_t index, const Read& read)
{
    const std::string json = library.JsonAt(index);
    try {
        return read(json, FolderOf(library.Path()));
    } catch (const CorvexMaterial::Error& error) {
        ThrowLibraryError(library.Path(),
                          "entry \"" + library.NameAt(index) + "\" is damaged: " + error.what());
    }
}

}  // namespace

MaterialReading ReadMaterial(LibraryFile& library, std::int32_t index)
{
    return ReadEntry(library, index, MaterialOfJson);
}

std::string ReadTexture(LibraryFile& library, std::int32_t index)
{
    return ReadEntry(library, index, TextureOfJson);
}

}  // namespace studio
