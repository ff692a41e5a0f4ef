#pragma once

#include "LibraryChange.h"
#include "MaterialText.h"
#include "ModelImport.h"
#include "Report.h"

#include <QObject>

#include <optional>

class QAction;
class QMenu;
class QWidget;

namespace studio {

class FileWork;
class LibraryFile;
class StudioHost;
class WindowMessages;

/// Takes materials of other programs into the open library and writes those of it for them, and
/// shows what became of their properties.
class MaterialExchange : public QObject {
    Q_OBJECT

public:
    /// All but the window, which is its parent, outlives this object.
    MaterialExchange(StudioHost& host, WindowMessages& messages, ImportProgram importer,
                     FileWork& work, QWidget& window);

    void AddTo(QMenu& menu);
    void Import(const QString& file);
    /// The window goes on meanwhile; the user is told how it ends.
    void Export(const QString& file);
    /// Keeps what became of materials that came in another way, to be shown when it is asked for.
    /// Returns a summary; empty when nothing was lost.
    QString Keep(const QString& title, const Report& report, std::size_t materials,
                 std::size_t missingTextures = 0);
    /// The same, and shows it.
    void Show(const QString& title, const Report& report, std::size_t materials);
    void ShowLast();

Q_SIGNALS:
    /// The open library has new entries.
    void Imported(const studio::LibraryChange& change);
    /// Missing textures are to be looked for.
    void SearchWanted();

private:
    void ChooseImport();
    void ChooseExport();
    [[nodiscard]] LibraryFile* OpenLibrary();
    // Both nothing when the user has cancelled.
    [[nodiscard]] std::optional<std::vector<NamedMaterial>>
    Read(const QString& file, const std::string& pictureFolder, Report& report);
    [[nodiscard]] std::optional<std::vector<NewEntry>>
    EntriesOf(const std::vector<NamedMaterial>& materials, const LibraryFile& library);

    StudioHost& m_host;
    WindowMessages& m_messages;
    ImportProgram m_importer;
    FileWork& m_work;
    QWidget& m_window;
    QString m_folder;  ///< of the last file
    QAction* m_lastReport = nullptr;
    QString m_title;
    QString m_summary;
    std::size_t m_missingTextures = 0;
    Report m_report;
};

}  // namespace studio
