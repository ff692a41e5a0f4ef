#include "SqliteMaterialLibrary.h"

#include "LastingPicture.h"
#include "LibraryReading.h"
#include "MaterialName.h"
#include "StoredPath.h"
#include "Thumbnailer.h"
#include <CorvexMaterial/Status.h>

namespace studio {
void SqliteMaterialLibrary::CreateLibrary(const std::string& path)
{
    LibraryFile::Create(path, LibraryKind::Materials);
}

CorvexDB::LibraryContent SqliteMaterialLibrary::Open(const std::string& path)
{
    m_file.reset();
    m_file.emplace(LibraryFile::Open(path, LibraryKind::Materials));
    return {m_file->Count()};
}

CorvexDB::udtMaterial SqliteMaterialLibrary::MaterialAt(std::int32_t index)
{
    LibraryFile& file = OpenedFile();
    MaterialReading reading = ReadMaterial(file, index);
    for (const std::string& problem : reading.problems) {
        m_services.log.RecordEvent("Library '" + file.Path() + "', entry '" + file.NameAt(index) +
                                   "': " + problem + '.');
    }
    m_taken = file.NameAt(index);
    m_lastTaken = {file.Path(), file.IdAt(index), file.RevisionOf(file.IdAt(index))};
    return std::move(reading.material);
}

void SqliteMaterialLibrary::AddMaterialToLibrary(const CorvexDB::udtMaterial& material)
{
    LibraryFile& file = OpenedFile();
    file.RequireWritable();  // before a picture is copied
    NamedMaterial named{UnusedName(file, DescriptiveName(material)), material};
    named.material.Textures.primary =
        WithLastingPicture(material.Textures.primary, FolderOf(file.Path()));
    NewEntry entry = EntryOfMaterial(named, FolderOf(file.Path()),
                                     m_services.customFields.GetCustomMaterialFieldNames());
    entry.png = m_services.thumbnails.PngIfPossible(material);
    const EntryId id = file.Add(entry);
    if (m_listener) {
        m_listener({LibraryChange::Kind::Added, file.Path(), {id}});
    }
}

void SqliteMaterialLibrary::DeleteMaterialFromLibrary(std::int32_t index)
{
    LibraryFile& file = OpenedFile();
    const EntryId id = file.IdAt(index);
    file.Remove(id);
    if (m_listener) {
        m_listener({LibraryChange::Kind::Removed, file.Path(), {id}});
    }
}

LibraryFile& SqliteMaterialLibrary::OpenedFile()
{
    if (!m_file) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    "No material library is open.");
    }
    return *m_file;
}

}  // namespace studio
