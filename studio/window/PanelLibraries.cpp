#include "PanelLibraries.h"

#include "AddDialog.h"
#include "DetailsForm.h"
#include "EntryMenu.h"
#include "HistoryMenu.h"
#include "LibraryDesk.h"
#include "LibraryLinks.h"
#include "LibraryMenu.h"
#include "LibraryReading.h"
#include "MaterialDragging.h"
#include "MaterialName.h"
#include "PanelDock.h"
#include "SceneMaterials.h"
#include "ScenePane.h"
#include "SqliteMaterialLibrary.h"
#include "SqliteTextureLibrary.h"
#include "StoredPath.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "ViewportDrops.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"
#include <CorvexMaterial/Material.h>

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenuBar>

namespace studio {
namespace {

CorvexEditport::BrowserKind OnPanel(LibraryKind kind)
{
    return kind == LibraryKind::Materials ? CorvexEditport::BrowserKind::Materials
                                          : CorvexEditport::BrowserKind::Textures;
}

}  // namespace

PanelLibraries::PanelLibraries(StudioHost& host, WindowMessages& messages, PanelDock& panel)
    : m_host(host), m_messages(messages), m_panel(panel),
      m_desk(new LibraryDesk(host.Browsers(), this))
{
    ConnectDesk();
    connect(&m_host.Browsers(), &LibraryBrowsers::DeletePressed, this, [this](LibraryKind kind) {
        // A browser in a dialog has a selection of its own; the button is about the panel's.
        if (QApplication::activeModalWidget() != nullptr) {
            return;
        }
        const auto browsers = m_host.Browsers().Of(kind);
        const auto ids =
            browsers.empty() ? std::vector<EntryId>() : browsers.front()->SelectedIds();
        if (ids.size() > 1) {
            m_desk->Remove(kind, ids);
        } else {
            m_panel.Panel().DeleteFromLibrary(OnPanel(kind));
        }
    });
    connect(&m_host.Browsers(), &LibraryBrowsers::MenuWanted, this, &PanelLibraries::ShowEntryMenu);
    ConnectDrops();
}

PanelLibraries::~PanelLibraries()
{
    const auto leave = [](auto& library) {
        library.SetListener({});
        library.SetBackupListener({});
        library.SetAsking({});
    };
    leave(m_host.Materials());
    leave(m_host.Textures());
}

void PanelLibraries::ConnectDesk()
{
    connect(m_desk, &LibraryDesk::Message, &m_messages, &WindowMessages::Show);
    connect(m_desk, &LibraryDesk::Refused, &m_messages, &WindowMessages::Tell);
    const auto connectTo = [this](auto& library, LibraryKind kind) {
        library.SetListener(
            [this, kind](const LibraryChange& change) { m_desk->Record(kind, change); });
        library.SetBackupListener([this](const std::string& backup) {
            m_messages.Log(tr("A library has a newer format now; as it was it is kept as %1")
                               .arg(QString::fromStdString(backup)));
            m_desk->TellBackup(backup);
        });
        library.SetAsking(
            [this, kind](AddRequest& request) { return AskBeforeAdd(kind, request); });
    };
    connectTo(m_host.Materials(), LibraryKind::Materials);
    connectTo(m_host.Textures(), LibraryKind::Textures);
}

void PanelLibraries::ConnectDrops()
{
    LibraryBrowsers& browsers = m_host.Browsers();
    connect(&browsers, &LibraryBrowsers::MaterialDropped, this, &PanelLibraries::AddDropped);
    connect(&browsers, &LibraryBrowsers::FilesDropped, this, &PanelLibraries::AddFiles);
    connect(&browsers, &LibraryBrowsers::CopyDropped, this, [this](const auto& ids) {
        Copy(LibraryKind::Materials, ids, QString::fromStdString(m_host.Materials().LatestFile()));
    });
}

EntryDetails PanelLibraries::ShownDetails(LibraryKind kind) const
{
    EntryDetails details;
    const auto browsers = m_host.Browsers().Of(kind);
    const std::string shown =
        browsers.empty() ? std::string() : browsers.front()->ShownCollection();
    if (!shown.empty()) {
        details.collections = {shown};
    }
    return details;
}

void PanelLibraries::ShowAdded(LibraryKind kind)
{
    if (LibraryFile* file = m_host.Browsers().Open(kind); file != nullptr && file->Count() > 0) {
        m_host.Browsers().ShowAgain(kind, file->IdAt(file->Count() - 1));
    }
}

void PanelLibraries::AddDropped(const NamedMaterial& named)
{
    m_messages.Telling([&] {
        const LibraryFile* file = m_host.Materials().File();
        if (file == nullptr) {
            return;
        }
        const std::string name = named.name.empty() ? DescriptiveName(named.material) : named.name;
        m_host.Materials().Add({name, file->Path(), ShownDetails(LibraryKind::Materials)},
                               named.material);
        ShowAdded(LibraryKind::Materials);
    });
}

void PanelLibraries::AddFiles(const QStringList& files)
{
    std::vector<std::string> paths;
    for (const QString& file : files) {
        paths.push_back(file.toStdString());
    }
    m_messages.Telling([&] {
        const std::vector<std::string> refused =
            m_host.Textures().AddFiles(paths, ShownDetails(LibraryKind::Textures));
        ShowAdded(LibraryKind::Textures);
        if (!refused.empty()) {
            QStringList reasons;
            for (const std::string& reason : refused) {
                reasons << QString::fromStdString(reason);
            }
            m_messages.Tell(
                tr("%Ln file(s) were not added:", nullptr, static_cast<int>(refused.size())) +
                QLatin1Char('\n') + reasons.join(QLatin1Char('\n')));
        }
    });
}

void PanelLibraries::Copy(LibraryKind kind, const std::vector<EntryId>& ids, const QString& target)
{
    LibraryFile* source = m_host.Browsers().Open(kind);
    m_messages.Telling([&] {
        if (source == nullptr || target.isEmpty() || ids.empty()) {
            return;
        }
        LibraryFile library = LibraryFile::Open(target.toStdString(), kind);
        library.SetBackupListener([this](const auto& backup) { m_desk->TellBackup(backup); });
        const auto fields = m_host.Get().customFields.GetCustomMaterialFieldNames();
        std::vector<NewEntry> entries;
        for (const EntryId id : ids) {
            if (const auto index = source->IndexOf(id)) {
                entries.push_back(CopiedEntry(*source, *index, library, fields));
            }
        }
        m_desk->Record(kind, {LibraryChange::Kind::Added, library.Path(), library.Add(entries)});
    });
}

QStringList PanelLibraries::Targets(LibraryKind kind) const
{
    const QDir folder(QString::fromStdString(m_host.State().LibraryFolder()));
    const QString pattern = QStringLiteral("*.") + QLatin1String(LibrarySuffix(kind));
    QStringList targets;
    for (const QFileInfo& file : folder.entryInfoList({pattern}, QDir::Files, QDir::Name)) {
        targets << file.absoluteFilePath();
    }
    const LibraryFile* open = m_host.Browsers().Open(kind);
    if (open != nullptr && !open->IsInMemory() &&
        !targets.contains(QString::fromStdString(open->Path()))) {
        targets.prepend(QString::fromStdString(open->Path()));
    }
    return targets;
}

bool PanelLibraries::AskBeforeAdd(LibraryKind kind, AddRequest& request)
{
    LibraryFile* open = m_host.Browsers().Open(kind);
    const auto browsers = m_host.Browsers().Of(kind);
    if (open == nullptr || browsers.empty()) {
        return true;
    }
    if (!open->IsInMemory()) {
        open->RequireWritable();  // before anybody has named what cannot be added
    }
    request.details = ShownDetails(kind);
    AddDialog dialog(kind, request, Targets(kind), DetailChoices::Of(*open),
                     m_panel.Panel().window());
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    request = dialog.Wanted();
    return true;
}

void PanelLibraries::ProvideFirst(StudioHost& host, WindowMessages& messages)
{
    const QDir folder(QString::fromStdString(host.State().LibraryFolder()));
    folder.mkpath(QStringLiteral("."));
    for (const char* name : {"Gems.cvm", "Gems.cvt"}) {
        const std::string path = folder.filePath(QLatin1String(name)).toStdString();
        try {
            if (!QFileInfo::exists(QString::fromStdString(path))) {
                LibraryFile::Create(path, LibraryKindOf(path));
            }
        } catch (const CorvexMaterial::Error& error) {
            messages.Log(QString::fromStdString(error.what()));
        }
    }
}

QUndoStack& PanelLibraries::History()
{
    return m_desk->History();
}

void PanelLibraries::AddTo(QMenuBar& bar)
{
    auto* menu = new LibraryMenu(*m_desk, &bar);
    bar.addMenu(menu);
    menu->addSeparator();
    AddHistory(*menu, m_desk->History(), HistoryKeys::None);
    connect(menu, &LibraryMenu::ChooseLibrary, this,
            [this](LibraryKind kind) { m_panel.Panel().ChooseLibrary(OnPanel(kind)); });
    connect(menu, &LibraryMenu::EmptyTrashWanted, this, &PanelLibraries::EmptyTrash);
}

bool PanelLibraries::Replace(const EntryOrigin& entry, const NamedMaterial& material)
{
    return m_desk->Replace(entry, m_host.Materials().EntryOf(material, FolderOf(entry.library)));
}

void PanelLibraries::DropOn(ScenePane& scene, LibraryLinks& links)
{
    auto* drops = new ViewportDrops(scene.Viewport(),
                                    [&scene](QPoint position) { return scene.ShapeAt(position); });
    MaterialLink* const link = &m_panel.Link();
    new MaterialDragging(
        scene.Viewport(), [&scene](QPoint position) -> std::optional<NamedMaterial> {
            const auto shape = scene.ShapeAt(position);
            if (shape == nullptr) {
                return std::nullopt;
            }
            const auto& identity = shape->Applied().identity;
            return NamedMaterial{identity ? identity->name : std::string(), shape->Material()};
        });
    auto* const followed = new SceneMaterials(
        {scene.Scene(), m_host.Materials(), m_host.Browsers(), m_host.Thumbnails(),
         [this] { return m_host.Get().customFields.GetCustomMaterialFieldNames(); }},
        this);
    for (LibraryBrowser* browser : m_host.Browsers().Of(LibraryKind::Materials)) {
        browser->SetShelf([this] {
            return QFileInfo(QString::fromStdString(m_host.Materials().LatestFile())).fileName();
        });
    }
    connect(&scene.Viewport(), &ViewportWidget::pictureShown, followed,
            &SceneMaterials::FollowSoon);
    connect(drops, &ViewportDrops::Hint, &m_messages, &WindowMessages::Show);
    connect(drops, &ViewportDrops::Over, link,
            [link, &scene](const std::shared_ptr<StudioShape>& shape,
                           const CorvexDB::udtMaterial& material) {
                scene.Scene().MarkTarget(shape);
                if (shape != nullptr) {
                    link->Previewing().Show({MaterialLink::PutOf(shape, material)});
                } else {
                    link->Previewing().End();
                    scene.Viewport().Draw();
                }
            });
    connect(drops, &ViewportDrops::Dropped, &links,
            [&links](const std::shared_ptr<StudioShape>& shape, const DroppedMaterial& dropped) {
                links.Put({shape}, dropped);
            });
}

void PanelLibraries::Open(const QString& file, LibraryKind kind)
{
    const QFileInfo info(file);
    const QDir folder(QString::fromStdString(m_host.State().LibraryFolder()));
    const bool inFolder = QDir(info.absolutePath()) == folder;
    const std::string name = (inFolder ? info.fileName() : info.absoluteFilePath()).toStdString();
    m_panel.Dock().show();
    const QString what = tr("%1 cannot be shown").arg(info.fileName());
    CorvexMaterial::Material& panel = m_panel.Panel();
    if (kind == LibraryKind::Materials) {
        m_messages.Check(panel.put_bMaterialLibraryPanel(true), what);
        m_messages.Check(panel.LoadMaterialLibrary(name), what);
    } else {
        m_messages.Check(panel.put_bTexturePanel(true), what);
        m_messages.Check(panel.LoadTextureLibrary(name), what);
    }
    for (LibraryBrowser* browser : m_host.Browsers().Of(kind)) {
        m_panel.RevealSoon(*browser);
    }
}

void PanelLibraries::ShowImported(const LibraryChange& change)
{
    if (!change.ids.empty()) {
        m_desk->Record(LibraryKind::Materials, change);
        m_host.Browsers().ShowAgain(LibraryKind::Materials, change.ids.back());
    }
}

void PanelLibraries::LookForChanges()
{
    m_desk->LookForChanges();
}

void PanelLibraries::ShowEntryMenu(LibraryBrowser& browser, QPoint globalPosition)
{
    const bool inPanel = browser.window() == m_panel.Panel().window();
    auto* menu = new EntryMenu(browser, *m_desk,
                               inPanel ? EntryMenu::Place::Panel : EntryMenu::Place::Dialog,
                               Targets(browser.Kind()));
    connect(menu, &EntryMenu::CopyWanted, this,
            [this, kind = browser.Kind()](const auto& ids, const QString& target) {
                Copy(kind, ids, target);
            });
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu, &EntryMenu::EmptyTrashWanted, this, &PanelLibraries::EmptyTrash);
    connect(menu, &EntryMenu::LinkWanted, this, [this, &browser] { Q_EMIT LinkWanted(browser); });
    connect(menu, &EntryMenu::Message, &m_messages, &WindowMessages::Show);
    menu->popup(globalPosition);
}

void PanelLibraries::EmptyTrash()
{
    const std::int64_t materials = m_desk->TrashCount(LibraryKind::Materials);
    const std::int64_t textures = m_desk->TrashCount(LibraryKind::Textures);
    if (materials + textures == 0) {
        m_messages.Show(tr("Nothing was deleted from the open libraries."));
        return;
    }
    if (m_messages.Ask(tr("Delete %1 and %2 in the trash of the open libraries for good?")
                           .arg(tr("%Ln material(s)", nullptr, static_cast<int>(materials)),
                                tr("%Ln texture(s)", nullptr, static_cast<int>(textures))))) {
        m_desk->EmptyTrash(LibraryKind::Materials);
        m_desk->EmptyTrash(LibraryKind::Textures);
    }
}

}  // namespace studio
