#include "SqliteTextureLibrary.h"

#include "LibraryReading.h"
#include "MaterialName.h"
#include "StoredPath.h"
#include "TextureText.h"
#include "Thumbnailer.h"
#include <CorvexMaterial/Status.h>

namespace studio {

void SqliteTextureLibrary::CreateLibrary(const std::string& path)
{
    LibraryFile::Create(path, LibraryKind::Textures);
}

CorvexDB::LibraryContent SqliteTextureLibrary::Open(const std::string& path)
{
    m_file.reset();
    m_file.emplace(LibraryFile::Open(path, LibraryKind::Textures));
    return {m_file->Count()};
}

std::string SqliteTextureLibrary::SelectedLibraryTexture(std::int32_t index)
{
    return ReadTexture(OpenedFile(), index);
}

void SqliteTextureLibrary::AddTextureToLibrary(const std::string& file)
{
    LibraryFile& library = OpenedFile();
    const auto picture = Thumbnailer::OfTexture(file);
    if (picture.thumbnail.isNull()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, picture.error);
    }
    NewEntry entry = EntryOfTexture(file, FolderOf(library.Path()),
                                    {picture.size.width(), picture.size.height()});
    entry.name = UnusedName(library, entry.name);
    entry.png = Thumbnailer::Png(picture.thumbnail);
    const EntryId id = library.Add(entry);
    if (m_listener) {
        m_listener({LibraryChange::Kind::Added, library.Path(), {id}});
    }
}

void SqliteTextureLibrary::DeleteTextureFromLibrary(std::int32_t index)
{
    LibraryFile& library = OpenedFile();
    const EntryId id = library.IdAt(index);
    library.Remove(id);
    if (m_listener) {
        m_listener({LibraryChange::Kind::Removed, library.Path(), {id}});
    }
}

LibraryFile& SqliteTextureLibrary::OpenedFile()
{
    if (!m_file) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    "No texture library is open.");
    }
    return *m_file;
}

}  // namespace studio
