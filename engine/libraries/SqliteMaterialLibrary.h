#pragma once

#include "LibraryChange.h"
#include "LibraryFile.h"
#include <CorvexMaterial/CorvexDB.h>

#include <utility>

namespace studio {

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
    void CloseLibrary() override { m_file.reset(); }
    /// What of the entry cannot be read has its default and goes to the event log.
    CorvexDB::udtMaterial MaterialAt(std::int32_t index) override;
    /// Named after what is seen of it; with a thumbnail where pictures can be drawn.
    void AddMaterialToLibrary(const CorvexDB::udtMaterial& material) override;
    /// Into the library's trash.
    void DeleteMaterialFromLibrary(std::int32_t index) override;

    /// Null while none is open; until the next `Open` or `CloseLibrary`.
    [[nodiscard]] LibraryFile* File() { return m_file ? &*m_file : nullptr; }
    /// Name of the entry that the control has asked for since the last call; empty for none.
    [[nodiscard]] std::string TakenEntry() { return std::exchange(m_taken, {}); }
    /// Where the material that the control asked for last came from; with id 0 for none.
    [[nodiscard]] const EntryOrigin& LastTaken() const { return m_lastTaken; }
    /// Told after each change that came through the control; not those made on `File()`.
    void SetListener(LibraryListener listener) { m_listener = std::move(listener); }

private:
    LibraryFile& OpenedFile();

    Services m_services;
    std::optional<LibraryFile> m_file;
    LibraryListener m_listener;
    std::string m_taken;
    EntryOrigin m_lastTaken;
};

}  // namespace studio
