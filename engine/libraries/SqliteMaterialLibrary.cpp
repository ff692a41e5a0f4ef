#include "SqliteMaterialLibrary.h"

#include "LastingPicture.h"
#include "LibraryReading.h"
#include "MaterialName.h"
#include "SceneLibrary.h"
#include "StoredPath.h"
#include "Thumbnailer.h"
#include "Tr.h"
#include <CorvexMaterial/Status.h>

namespace studio {
void SqliteMaterialLibrary::CreateLibrary(const std::string& path)
{
    LibraryFile::Create(path, LibraryKind::Materials);
}

CorvexDB::LibraryContent SqliteMaterialLibrary::Open(const std::string& path)
{
    CloseLibrary();
    if (m_scene != nullptr && path == SceneLibrary::kName) {
        m_follow();
        m_showsScene = true;
        return {m_scene->File().Count(), true};
    }
    m_file.emplace(LibraryFile::Open(path, LibraryKind::Materials));
    m_latestFile = m_file->Path();
    m_file->SetBackupListener(m_backupListener);
    return {m_file->Count()};
}

void SqliteMaterialLibrary::CloseLibrary()
{
    m_file.reset();
    m_showsScene = false;
}

std::vector<CorvexDB::HostLibrary> SqliteMaterialLibrary::HostLibraries()
{
    if (m_scene == nullptr) {
        return {};
    }
    return {{SceneLibrary::kName, Tr("Materials in This Scene").toStdString()}};
}

void SqliteMaterialLibrary::SetSceneLibrary(SceneLibrary* scene, std::function<void()> follow)
{
    m_showsScene = m_showsScene && scene != nullptr;
    m_scene = scene;
    m_follow = std::move(follow);
}

LibraryFile* SqliteMaterialLibrary::File()
{
    if (m_showsScene) {
        return &m_scene->File();
    }
    return m_file ? &*m_file : nullptr;
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
    m_lastTaken = file.IsInMemory() ? EntryOrigin()
                                    : EntryOrigin{file.Path(), file.IdAt(index),
                                                  file.RevisionOf(file.IdAt(index))};
    return std::move(reading.material);
}

void SqliteMaterialLibrary::AddMaterialToLibrary(const CorvexDB::udtMaterial& material)
{
    LibraryFile& file = OpenedFile();
    // What is shown of the scene goes into a file all the same, if there is someone to say which.
    if (!m_asking) {
        file.RequireWritable();
    }
    AddRequest request{UnusedName(file, DescriptiveName(material)),
                       file.IsInMemory() ? m_latestFile : file.Path(),
                       {}};
    if (!m_asking || m_asking(request)) {
        Add(request, material);
    }
}

void SqliteMaterialLibrary::Add(const AddRequest& request, const CorvexDB::udtMaterial& material)
{
    std::optional<LibraryFile> other;
    if (!m_file || m_file->Path() != request.library) {
        other.emplace(LibraryFile::Open(request.library, LibraryKind::Materials));
        other->SetBackupListener(m_backupListener);
    }
    LibraryFile& file = other ? *other : *m_file;
    file.RequireWritable();  // before a picture is copied
    const EntryId id = file.Add(EntryOf({UnusedName(file, request.name), material, request.details},
                                        FolderOf(file.Path())));
    if (m_listener) {
        m_listener({LibraryChange::Kind::Added, file.Path(), {id}});
    }
}

NewEntry SqliteMaterialLibrary::EntryOf(NamedMaterial named, const std::string& folder) const
{
    std::string png = m_services.thumbnails.PngIfPossible(named.material);
    named.material.Textures.primary = WithLastingPicture(named.material.Textures.primary, folder);
    NewEntry entry =
        EntryOfMaterial(named, folder, m_services.customFields.GetCustomMaterialFieldNames());
    entry.png = std::move(png);
    return entry;
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
    LibraryFile* file = File();
    if (file == nullptr) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    "No material library is open.");
    }
    return *file;
}

}  // namespace studio
