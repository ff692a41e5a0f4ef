#pragma once

#include "AddRequest.h"
#include "LibraryChange.h"
#include "LibraryFile.h"
#include <CorvexMaterial/CorvexDB.h>

namespace studio {

/// The texture library that the control has open. User-interface thread only.
class SqliteTextureLibrary : public CorvexDB::TextureLibrary, private CorvexDB::TextureCollection {
public:
    void CreateLibrary(const std::string& path) override;
    /// After a failure no library is open.
    CorvexDB::LibraryContent Open(const std::string& path) override;
    void CloseLibrary() override { m_file.reset(); }
    CorvexDB::TextureCollection& Textures() override { return *this; }
    /// With its full path.
    std::string SelectedLibraryTexture(std::int32_t index) override;
    /// Named after the file, where nobody is asked. Errors: FileFailed also for a file that is no
    /// image.
    void AddTextureToLibrary(const std::string& file) override;
    /// Into the library's trash.
    void DeleteTextureFromLibrary(std::int32_t index) override;

    /// Null while none is open; until the next `Open` or `CloseLibrary`.
    [[nodiscard]] LibraryFile* File() { return m_file ? &*m_file : nullptr; }
    // These as in the material library.
    void SetAsking(AskBeforeAdding asking) { m_asking = std::move(asking); }
    void SetBackupListener(LibraryFile::BackupListener listener)
    {
        m_backupListener = std::move(listener);
    }
    void Add(const AddRequest& request, const std::string& file);
    /// Into the open library, under their names; a listener hears of one change. Returns the
    /// files that are no images, and why.
    [[nodiscard]] std::vector<std::string> AddFiles(const std::vector<std::string>& files,
                                                    const EntryDetails& details);
    /// Told after each change that came through the control; not those made on `File()`.
    void SetListener(LibraryListener listener) { m_listener = std::move(listener); }

private:
    std::int32_t Count() override { return m_file ? m_file->Count() : 0; }
    std::string FileAt(std::int32_t index) override { return SelectedLibraryTexture(index); }
    LibraryFile& OpenedFile();

    std::optional<LibraryFile> m_file;
    LibraryListener m_listener;
    LibraryFile::BackupListener m_backupListener;
    AskBeforeAdding m_asking;
};

}  // namespace studio
