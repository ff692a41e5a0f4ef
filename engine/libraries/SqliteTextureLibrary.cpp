#include "SqliteTextureLibrary.h"

#include "LibraryReading.h"
#include "MaterialName.h"
#include "StoredPath.h"
#include "TextureText.h"
#include "Thumbnailer.h"
#include <CorvexMaterial/Status.h>

namespace studio {
namespace {

NewEntry EntryOfFile(const std::string& file, const LibraryFile& library)
{
    const auto picture = Thumbnailer::OfTexture(file);
    if (picture.thumbnail.isNull()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, picture.error);
    }
    NewEntry entry = EntryOfTexture(file, FolderOf(library.Path()),
                                    {picture.size.width(), picture.size.height()});
    entry.png = Thumbnailer::Png(picture.thumbnail);
    return entry;
}

}  // namespace

void SqliteTextureLibrary::CreateLibrary(const std::string& path)
{
    LibraryFile::Create(path, LibraryKind::Textures);
}

CorvexDB::LibraryContent SqliteTextureLibrary::Open(const std::string& path)
{
    m_file.reset();
    m_file.emplace(LibraryFile::Open(path, LibraryKind::Textures));
    m_file->SetBackupListener(m_backupListener);
    return {m_file->Count()};
}

std::string SqliteTextureLibrary::SelectedLibraryTexture(std::int32_t index)
{
    return ReadTexture(OpenedFile(), index);
}

void SqliteTextureLibrary::AddTextureToLibrary(const std::string& file)
{
    LibraryFile& library = OpenedFile();
    const NewEntry entry = EntryOfFile(file, library);
    AddRequest request{UnusedName(library, entry.name), library.Path(), {}};
    if (!m_asking || m_asking(request)) {
        Add(request, file);
    }
}

void SqliteTextureLibrary::Add(const AddRequest& request, const std::string& file)
{
    std::optional<LibraryFile> other;
    if (!m_file || m_file->Path() != request.library) {
        other.emplace(LibraryFile::Open(request.library, LibraryKind::Textures));
        other->SetBackupListener(m_backupListener);
    }
    LibraryFile& library = other ? *other : *m_file;
    NewEntry entry = EntryOfFile(file, library);
    entry.name = UnusedName(library, request.name);
    entry.details = request.details;
    const EntryId id = library.Add(entry);
    if (m_listener) {
        m_listener({LibraryChange::Kind::Added, library.Path(), {id}});
    }
}

std::vector<std::string> SqliteTextureLibrary::AddFiles(const std::vector<std::string>& files,
                                                        const EntryDetails& details)
{
    LibraryFile& library = OpenedFile();
    library.RequireWritable();
    std::vector<NewEntry> entries;
    std::vector<std::string> refused;
    for (const std::string& file : files) {
        try {
            entries.push_back(EntryOfFile(file, library));
            entries.back().name = UnusedName(library, entries.back().name);
            entries.back().details = details;
        } catch (const CorvexMaterial::Error& error) {
            refused.emplace_back(error.what());
        }
    }
    if (!entries.empty()) {
        const auto ids = library.Add(entries);
        if (m_listener) {
            m_listener({LibraryChange::Kind::Added, library.Path(), ids});
        }
    }
    return refused;
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
