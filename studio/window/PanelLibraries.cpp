#include "PanelLibraries.h"

#include "EntryMenu.h"
#include "HistoryMenu.h"
#include "LibraryDesk.h"
#include "LibraryMenu.h"
#include "PanelDock.h"
#include "ScenePane.h"
#include "SqliteMaterialLibrary.h"
#include "SqliteTextureLibrary.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "ViewportDrops.h"
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
        if (QApplication::activeModalWidget() == nullptr) {
            m_panel.Panel().DeleteFromLibrary(OnPanel(kind));
        }
    });
    connect(&m_host.Browsers(), &LibraryBrowsers::MenuWanted, this, &PanelLibraries::ShowEntryMenu);
}

PanelLibraries::~PanelLibraries()
{
    m_host.Materials().SetListener({});
    m_host.Textures().SetListener({});
}

void PanelLibraries::ConnectDesk()
{
    connect(m_desk, &LibraryDesk::Message, &m_messages, &WindowMessages::Show);
    connect(m_desk, &LibraryDesk::Refused, &m_messages, &WindowMessages::Tell);
    m_host.Materials().SetListener(
        [this](const LibraryChange& change) { m_desk->Record(LibraryKind::Materials, change); });
    m_host.Textures().SetListener(
        [this](const LibraryChange& change) { m_desk->Record(LibraryKind::Textures, change); });
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

void PanelLibraries::DropOn(ScenePane& scene)
{
    auto* drops = new ViewportDrops(scene.Viewport(),
                                    [&scene](QPoint position) { return scene.ShapeAt(position); });
    MaterialLink* const link = &m_panel.Link();
    connect(drops, &ViewportDrops::Hint, &m_messages, &WindowMessages::Show);
    connect(drops, &ViewportDrops::MaterialDropped, link,
            [link](const std::shared_ptr<StudioShape>& shape, const NamedMaterial& dropped) {
                link->Put(shape, dropped.material, dropped.name);
            });
    connect(drops, &ViewportDrops::TextureDropped, link,
            [link](const std::shared_ptr<StudioShape>& shape, const QString& file) {
                CorvexDB::udtMaterial material = shape->Material();
                material.Textures.primary = file.toStdString();
                link->Put(shape, material);
            });
}

// One of the library folder goes by its name alone, as in the panel's list.
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
                               inPanel ? EntryMenu::Place::Panel : EntryMenu::Place::Dialog);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu, &EntryMenu::EmptyTrashWanted, this, &PanelLibraries::EmptyTrash);
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
    if (m_messages.Ask(tr("Delete %1 materials and %2 textures in the trash of the open "
                          "libraries for good?")
                           .arg(materials)
                           .arg(textures))) {
        m_desk->EmptyTrash(LibraryKind::Materials);
        m_desk->EmptyTrash(LibraryKind::Textures);
    }
}

}  // namespace studio
