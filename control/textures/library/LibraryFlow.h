#pragma once

#include <CorvexMaterial/Host.h>
#include <CorvexMaterial/Platform.h>
#include <CorvexMaterial/WarningCatalogue.h>

#include <QElapsedTimer>
#include <QObject>

#include <cstdint>
#include <string>
#include <string_view>

namespace CorvexMaterial {

class LibraryPanel;
class Trap;

/// The fixed texts of one kind of library.
struct LibraryTexts {
    std::string_view stem;  ///< of the controls' names
    std::string_view loading;
    std::string_view loaded;
    std::string_view missingBefore;  ///< the file's name stands between the two
    std::string_view missingAfter;
    std::string_view description;  ///< of the file type
    std::string_view extension;
    WarningId newLibraryHint;
};

/// What a library flow works with. All of it outlives the flow.
struct LibraryServices {
    const Trap& trap;
    Host& host;
    Platform& platform;
    LibraryPanel& panel;
    std::string& name;  ///< of the open library, as it was given
};

/// What the controls of a library panel do: open a library, choose another one, add to it, delete
/// from it, take what is chosen in the browser. The two kinds of library say how.
class LibraryFlow : public QObject {
    Q_OBJECT

public:
    enum class Outcome { Loaded, Missing };

    LibraryFlow(const LibraryTexts& texts, const LibraryServices& services);

    /// Shows the library. A name without a folder is one of the host's library folder. A missing
    /// file is told to the user and keeps its name; then, and after an error, no library is open:
    /// the panel is empty and there is nothing to add to or delete from.
    Outcome Load(const std::string& name);

Q_SIGNALS:
    /// For the status line.
    void StatusText(const QString& text);
    /// A warning that the user may silence, with its key.
    void WarningRequested(const QString& text, const QString& key);

protected:
    [[nodiscard]] const LibraryServices& Services() const { return m_services; }
    void Tell(PromptIcon icon, const std::string& text);

    virtual void CreateFile(const std::string& path) = 0;
    virtual void CloseFile() = 0;
    virtual CorvexDB::LibraryContent OpenFile(const std::string& path) = 0;
    /// False when there is nothing to add; the library is as it was then.
    virtual bool AddCurrent() = 0;
    /// Beside the files.
    virtual std::vector<CorvexDB::HostLibrary> HostLibraries() { return {}; }
    virtual void DeleteAt(std::int32_t index) = 0;
    virtual void Take(std::int32_t index) = 0;

private:
    void Connect();
    Outcome Show(const std::string& name);
    /// As the list shows it.
    [[nodiscard]] std::string TitleOf(const std::string& name);
    [[nodiscard]] bool IsHostLibrary(const std::string& name);
    void ShowContent(const std::string& path);
    void List(const std::string& folder);
    void SayNotOpened(const std::string& name);
    /// Where an error arose: a control's name.
    [[nodiscard]] std::string Location(const char* prefix, const char* suffix = "") const;
    void Choose(const QString& entry);
    void ChooseFile();
    void Add();
    void Delete();
    void TakeSelected(std::int32_t index);
    void TakeOpened(std::int32_t index);
    [[nodiscard]] std::string PathOf(const std::string& name, const std::string& folder) const;

    const LibraryTexts& m_texts;
    LibraryServices m_services;
    std::int32_t m_selected = -1;
    QElapsedTimer m_sinceSelected;
};

}  // namespace CorvexMaterial
