#include "LibraryReading.h"

#include "DatabaseError.h"
#include "LibraryFile.h"
#include "StoredPath.h"
#include "TextureText.h"
#include <CorvexMaterial/Status.h>

namespace studio {
namespace {

template <typename Read>
auto ReadEntry(LibraryFile& library, std::int32_t index, const Read& read)
{
    const std::string json = library.JsonAt(index);
    try {
        return read(json, FolderOf(library.Path()));
    } catch (const CorvexMaterial::Error& error) {
        ThrowDatabaseError(library.Path(),
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
