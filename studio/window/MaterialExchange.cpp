#include "MaterialExchange.h"

#include "FileWork.h"
#include "Interchange.h"
#include "LibraryReading.h"
#include "ReportDialog.h"
#include "SaveDialog.h"
#include "SqliteMaterialLibrary.h"
#include "StoredPath.h"
#include "StudioHost.h"
#include "Thumbnailer.h"
#include "WaitCursor.h"
#include "WaitDialog.h"
#include "WindowMessages.h"
#include <CorvexMaterial/Status.h>

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>

namespace studio {
namespace {

// An entry that is damaged keeps no other from being written; the report names it.
std::vector<NamedMaterial> MaterialsIn(LibraryFile& library, Report& report)
{
    std::vector<NamedMaterial> materials;
    for (std::int32_t index = 0; index < library.Count(); ++index) {
        std::string name = "?";
        try {
            name = library.NameAt(index);
            MaterialReading reading = ReadMaterial(library, index);
            for (const std::string& problem : reading.problems) {
                report.Add({name, "entry of the library", Outcome::Approximated, problem});
            }
            materials.push_back(
                {name, std::move(reading.material), library.DetailsOf(library.IdAt(index))});
        } catch (const CorvexMaterial::Error& error) {
            report.Add({name, "entry of the library", Outcome::Dropped, error.what()});
        }
    }
    return materials;
}

}  // namespace

MaterialExchange::MaterialExchange(StudioHost& host, WindowMessages& messages,
                                   ImportProgram importer, FileWork& work, QWidget& window)
    : QObject(&window), m_host(host), m_messages(messages), m_importer(std::move(importer)),
      m_work(work), m_window(window)
{
}

void MaterialExchange::AddTo(QMenu& menu)
{
    menu.addAction(tr("&Import Materials..."), this, &MaterialExchange::ChooseImport)
        ->setStatusTip(tr("Adds the materials of another file to the open library"));
    menu.addAction(tr("E&xport Materials..."), this, &MaterialExchange::ChooseExport)
        ->setStatusTip(tr("Writes the materials of the open library for other programs"));
    m_lastReport = menu.addAction(tr("Last Repor&t..."), this, &MaterialExchange::ShowLast);
    m_lastReport->setObjectName(QStringLiteral("lastReport"));
    m_lastReport->setStatusTip(tr("What became of what was read or written last"));
    m_lastReport->setEnabled(false);
}

LibraryFile* MaterialExchange::OpenLibrary()
{
    LibraryFile* library = m_host.Materials().File();
    if (library == nullptr) {
        m_messages.Tell(tr("No material library is open. Open or create one first."));
    }
    return library;
}

void MaterialExchange::ChooseImport()
{
    if (OpenLibrary() == nullptr) {
        return;
    }
    const QString file = QFileDialog::getOpenFileName(&m_window, tr("Import Materials"), m_folder,
                                                      ImportFilters().join(QStringLiteral(";;")));
    if (!file.isEmpty()) {
        Import(file);
    }
}

void MaterialExchange::ChooseExport()
{
    if (OpenLibrary() == nullptr) {
        return;
    }
    const QString file =
        AskForTarget(m_window, {tr("Export Materials"), m_folder, ExportFilters()});
    if (!file.isEmpty()) {
        Export(file);
    }
}

void MaterialExchange::Import(const QString& file)
{
    LibraryFile* library = OpenLibrary();
    if (library == nullptr) {
        return;
    }
    if (!library->ReadOnlyReason().empty()) {
        m_messages.Tell(QString::fromStdString(library->ReadOnlyReason()));
        return;
    }
    m_folder = QFileInfo(file).absolutePath();
    m_messages.Telling([&] {
        Report report;
        const auto materials = Read(file, FolderOf(library->Path()), report);
        const auto entries = materials ? EntriesOf(*materials, *library) : std::nullopt;
        if (entries) {
            const std::vector<EntryId> ids = library->Add(*entries);
            Q_EMIT Imported({LibraryChange::Kind::Added, library->Path(), ids});
            Show(tr("Materials Imported"), report, materials->size());
        }
    });
}

std::optional<std::vector<NamedMaterial>>
MaterialExchange::Read(const QString& file, const std::string& pictureFolder, Report& report)
{
    WaitDialog progress(tr("Reading %1...").arg(QFileInfo(file).fileName()), &m_window);
    ImportProgram importer = m_importer;
    importer.cancelled = [&progress] { return progress.Cancelled(); };
    const WaitCursor waiting;
    try {
        importer.pictureFolder = pictureFolder;
        return ImportMaterials(file.toStdString(), report, importer);
    } catch (const CorvexMaterial::Error&) {
        if (progress.wasCanceled()) {
            return std::nullopt;
        }
        throw;
    }
}

std::optional<std::vector<NewEntry>>
MaterialExchange::EntriesOf(const std::vector<NamedMaterial>& materials, const LibraryFile& library)
{
    WaitDialog progress(tr("Drawing the thumbnails..."), &m_window,
                        static_cast<int>(materials.size()));
    const FieldNames fields = m_host.Get().customFields.GetCustomMaterialFieldNames();
    std::vector<NewEntry> entries;
    for (const NamedMaterial& named : materials) {
        entries.push_back(EntryOfMaterial(named, FolderOf(library.Path()), fields));
        entries.back().png = m_host.Thumbnails().PngIfPossible(named.material);
        progress.setValue(static_cast<int>(entries.size()));
        if (progress.wasCanceled()) {
            return std::nullopt;
        }
    }
    return entries;
}

void MaterialExchange::Export(const QString& file)
{
    LibraryFile* library = OpenLibrary();
    if (library == nullptr) {
        return;
    }
    m_folder = QFileInfo(file).absolutePath();
    m_messages.Telling([&] {
        const auto report = std::make_shared<Report>();
        std::vector<NamedMaterial> materials = MaterialsIn(*library, *report);
        const std::size_t count = materials.size();
        if (materials.empty()) {
            throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                        library->Path() +
                                            ": it has no material that can be written");
        }
        m_work.Start(
            tr("Writing %1...").arg(QFileInfo(file).fileName()),
            [report, materials = std::move(materials), path = file.toStdString()](
                const std::stop_token& stop) { ExportMaterials(path, materials, *report, stop); },
            [this, report, count] { Show(tr("Materials Exported"), *report, count); });
    });
}

QString MaterialExchange::Keep(const QString& title, const Report& report, std::size_t materials,
                               std::size_t missingTextures)
{
    m_title = title;
    m_summary = SummaryOf(report, materials);
    m_report = report;
    m_missingTextures = missingTextures;
    m_lastReport->setEnabled(true);
    return report.Count(Outcome::Mapped) == report.Rows().size() ? QString() : m_summary;
}

void MaterialExchange::Show(const QString& title, const Report& report, std::size_t materials)
{
    Keep(title, report, materials);
    ShowLast();
}

void MaterialExchange::ShowLast()
{
    // Over one that is there already: of two beside each other the keyboard may go to neither.
    QWidget* const front = QApplication::activeModalWidget();
    auto* dialog = new ReportDialog(m_title, m_summary, m_report, front ? front : &m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (m_missingTextures > 0) {
        dialog->TellMissing(m_missingTextures);
        connect(dialog, &ReportDialog::SearchWanted, this, &MaterialExchange::SearchWanted,
                Qt::QueuedConnection);
    }
    dialog->open();
}

}  // namespace studio
