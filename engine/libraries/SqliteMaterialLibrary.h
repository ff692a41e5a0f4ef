#pragma once

#include "AddRequest.h"
#include "LibraryChange.h"
#include "LibraryFile.h"
#include "MaterialText.h"
#include <CorvexMaterial/CorvexDB.h>

#include <utility>

namespace studio {

class SceneLibrary;
class Thumbnailer;

/// The material library that the control has open. User-interface thread only.
class SqliteMaterialLibrary : public CorvexDB::MaterialLibrary {
public:
    /// What it needs of the studio; all of it outlives the library.
    struct Services {
        const studio::Thumbnailer& thumbnails;
        CorvexDB::CustomFields& customFields;
        CorvexDB::Diagnostics& log;
    };

    explicit SqliteMaterialLibrary(const Services& services) : m_services(services) {}

    void CreateLibrary(const std::string& path) override;
    /// After a failure no library is open.
    CorvexDB::LibraryContent Open(const std::string& path) override;
    void CloseLibrary() override;
    /// That of the scene, where there is one.
    std::vector<CorvexDB::HostLibrary> HostLibraries() override;
    /// What of the entry cannot be read has its default and goes to the event log.
    CorvexDB::udtMaterial MaterialAt(std::int32_t index) override;
    /// Named after what is seen of it, where nobody is asked; with a thumbnail where pictures can
    /// be drawn.
    void AddMaterialToLibrary(const CorvexDB::udtMaterial& material) override;
    /// Of a library in the folder, with its thumbnail; the picture of a simulated raytrace material
    /// is copied there.
    [[nodiscard]] NewEntry EntryOf(NamedMaterial named, const std::string& folder) const;
    /// Into the library's trash.
    void DeleteMaterialFromLibrary(std::int32_t index) override;

    /// Null while none is open; until the next `Open` or `CloseLibrary`.
    [[nodiscard]] LibraryFile* File();
    /// The library that shows the scene's materials, and what brings it up to date before it is
    /// opened. Null takes it away again.
    void SetSceneLibrary(SceneLibrary* scene, std::function<void()> follow);
    /// Path of the file that was open last.
    [[nodiscard]] const std::string& LatestFile() const { return m_latestFile; }
    /// Name of the entry that the control has asked for since the last call; empty for none.
    [[nodiscard]] std::string TakenEntry() { return std::exchange(m_taken, {}); }
    /// Where the material that the control asked for last came from; with id 0 for none.
    [[nodiscard]] const EntryOrigin& LastTaken() const { return m_lastTaken; }
    /// Asked for the name and the library of what is added.
    void SetAsking(AskBeforeAdding asking) { m_asking = std::move(asking); }
    /// Of each library that is opened from now on.
    void SetBackupListener(LibraryFile::BackupListener listener)
    {
        m_backupListener = std::move(listener);
    }
    /// Adds it as it is wanted, under a name that the library does not have yet.
    void Add(const AddRequest& request, const CorvexDB::udtMaterial& material);
    /// Told after each change that came through the control; not those made on `File()`.
    void SetListener(LibraryListener listener) { m_listener = std::move(listener); }

private:
    LibraryFile& OpenedFile();

    Services m_services;
    std::optional<LibraryFile> m_file;
    std::string m_latestFile;
    SceneLibrary* m_scene = nullptr;
    std::function<void()> m_follow;
    bool m_showsScene = false;
    LibraryListener m_listener;
    LibraryFile::BackupListener m_backupListener;
    AskBeforeAdding m_asking;
    std::string m_taken;
    EntryOrigin m_lastTaken;
};

}  // namespace studio
