#include "LibraryReading.h"

#include "DatabaseError.h"
#include "LibraryFile.h"
#include "MaterialName.h"
#include "StoredPath.h"
#include "TextureText.h"
#include "Thumbnailer.h"
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

NewEntry CopiedEntry(LibraryFile& source, std::int32_t index, LibraryFile& target,
                     const FieldNames& fieldNames)
{
    const std::string folder = FolderOf(target.Path());
    NewEntry entry;
    if (source.Kind() == LibraryKind::Materials) {
        entry = EntryOfMaterial({{}, ReadMaterial(source, index).material}, folder, fieldNames);
    } else {
        const std::string file = ReadTexture(source, index);
        const QSize size = Thumbnailer::OfTexture(file).size;
        entry = EntryOfTexture(file, folder, {size.width(), size.height()});
    }
    entry.name = UnusedName(target, source.NameAt(index));
    entry.png = source.ThumbnailAt(index);
    entry.details = source.DetailsOf(source.IdAt(index));
    return entry;
}

}  // namespace studio
