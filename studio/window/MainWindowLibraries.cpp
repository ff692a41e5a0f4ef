#include "MainWindow.h"

#include "EntryMenu.h"
#include "EventLog.h"
#include "LibraryDesk.h"
#include "LibraryMenu.h"
#include "PanelArea.h"
#include "PanelFill.h"
#include "SqliteMaterialLibrary.h"
#include "SqliteTextureLibrary.h"
#include "StatusMessage.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "StudioSettings.h"
#include "ViewportDrops.h"
#include "ViewportWidget.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenuBar>

namespace studio {
namespace {

const char* StemOf(LibraryKind kind)
{
    return kind == LibraryKind::Materials ? "MaterialLibrary" : "TextureLibrary";
}

}  // namespace

void MainWindow::ConnectLibraries()
{
    m_desk = new LibraryDesk(m_host.Browsers(), m_history, this);
    connect(m_desk, &LibraryDesk::Message, m_misc, &StatusMessage::Show);
    connect(m_desk, &LibraryDesk::Refused, this, [this](const QString& message) {
        Tell(message, CorvexMaterial::PromptIcon::Exclamation);
    });
    connect(&m_host.Browsers(), &LibraryBrowsers::DeletePressed, this, [this](LibraryKind kind) {
        // A browser in a dialog has a selection of its own; the button is about the panel's.
        if (QApplication::activeModalWidget() == nullptr) {
            PressLibraryButton(kind, "Delete");
        }
    });
    m_host.Materials().SetListener(
        [this](const LibraryChange& change) { m_desk->Record(LibraryKind::Materials, change); });
    m_host.Textures().SetListener(
        [this](const LibraryChange& change) { m_desk->Record(LibraryKind::Textures, change); });
    connect(&m_host.Browsers(), &LibraryBrowsers::MenuWanted, this, &MainWindow::ShowEntryMenu);
    connect(m_fill, &PanelFill::AboutToReload, this, &MainWindow::KeepLibraries);
    ConnectDrops();
}

void MainWindow::DisconnectLibraries()
{
    m_host.Materials().SetListener({});
    m_host.Textures().SetListener({});
}

void MainWindow::ShowEntryMenu(LibraryBrowser& browser, QPoint globalPosition)
{
    const bool inPanel = browser.window() == window();
    auto* menu = new EntryMenu(browser, *m_desk,
                               inPanel ? EntryMenu::Place::Panel : EntryMenu::Place::Dialog);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu, &EntryMenu::EmptyTrashWanted, this, &MainWindow::EmptyTrash);
    connect(menu, &EntryMenu::Message, m_misc, &StatusMessage::Show);
    menu->popup(globalPosition);
}

bool MainWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && m_desk != nullptr) {
        m_desk->LookForChanges();
    }
    return QMainWindow::event(event);
}

void MainWindow::ConnectDrops()
{
    auto* drops =
        new ViewportDrops(*m_viewport, [this](QPoint position) { return ShapeAt(position); });
    connect(drops, &ViewportDrops::Hint, m_misc, &StatusMessage::Show);
    connect(drops, &ViewportDrops::MaterialDropped, m_link,
            [this](const std::shared_ptr<StudioShape>& shape, const NamedMaterial& dropped) {
                m_link->Put(shape, dropped.material);
            });
    connect(drops, &ViewportDrops::TextureDropped, m_link,
            [this](const std::shared_ptr<StudioShape>& shape, const QString& file) {
                CorvexDB::udtMaterial material = shape->Material();
                material.Textures.primary = file.toStdString();
                m_link->Put(shape, material);
            });
}

void MainWindow::BuildLibraryMenu()
{
    auto* menu = new LibraryMenu(*m_desk, this);
    menuBar()->addMenu(menu);
    connect(menu, &LibraryMenu::ChooseLibrary, this,
            [this](LibraryKind kind) { PressLibraryButton(kind, "Functions"); });
    connect(menu, &LibraryMenu::EmptyTrashWanted, this, &MainWindow::EmptyTrash);
}

// One of the library folder goes by its name alone, as in the panel's list.
void MainWindow::OpenLibrary(const QString& file, LibraryKind kind)
{
    const QFileInfo info(file);
    const QDir folder(QString::fromStdString(m_host.State().LibraryFolder()));
    const bool inFolder = QDir(info.absolutePath()) == folder;
    const std::string name = (inFolder ? info.fileName() : info.absoluteFilePath()).toStdString();
    m_dock->show();
    const QString what = tr("%1 cannot be shown").arg(info.fileName());
    if (kind == LibraryKind::Materials) {
        Check(m_material->put_bMaterialLibraryPanel(true), what);
        Check(m_material->LoadMaterialLibrary(name), what);
    } else {
        Check(m_material->put_bTexturePanel(true), what);
        Check(m_material->LoadTextureLibrary(name), what);
    }
    for (LibraryBrowser* browser : m_host.Browsers().Of(kind)) {
        // Once the panel has its place for it.
        QMetaObject::invokeMethod(
            browser, [this, browser] { m_area->ensureWidgetVisible(browser); },
            Qt::QueuedConnection);
    }
}

// The panel's own button: what it does belongs to the control.
void MainWindow::PressLibraryButton(LibraryKind kind, const char* button)
{
    const QString name =
        QStringLiteral("cmd%1%2").arg(QLatin1String(StemOf(kind)), QLatin1String(button));
    if (auto* found = m_material->findChild<QAbstractButton*>(name); found != nullptr) {
        found->click();
    }
}

void MainWindow::EmptyTrash()
{
    const std::int64_t materials = m_desk->TrashCount(LibraryKind::Materials);
    const std::int64_t textures = m_desk->TrashCount(LibraryKind::Textures);
    if (materials + textures == 0) {
        m_misc->Show(tr("Nothing was deleted from the open libraries."));
        return;
    }
    const QString question = tr("Delete %1 materials and %2 textures in the trash of the open "
                                "libraries for good?")
                                 .arg(materials)
                                 .arg(textures);
    if (m_platform.prompts.AskYesNo(
            {CorvexMaterial::PromptIcon::Exclamation, "Corvex", question.toStdString()})) {
        m_desk->EmptyTrash(LibraryKind::Materials);
        m_desk->EmptyTrash(LibraryKind::Textures);
    }
}

// Where no libraries are shipped the user begins with empty ones.
void MainWindow::ProvideFirstLibraries()
{
    const QDir folder(QString::fromStdString(m_host.State().LibraryFolder()));
    folder.mkpath(QStringLiteral("."));
    for (const char* name : {"Gems.cvm", "Gems.cvt"}) {
        const std::string path = folder.filePath(QLatin1String(name)).toStdString();
        try {
            if (!QFileInfo::exists(QString::fromStdString(path))) {
                LibraryFile::Create(path, LibraryKindOf(path));
            }
        } catch (const CorvexMaterial::Error& error) {
            m_host.Log().RecordEvent(error.what());
        }
    }
}

// The control opens the libraries that the settings name whenever it reads its saved state.
void MainWindow::KeepLibraries()
{
    for (const LibraryKind kind : {LibraryKind::Materials, LibraryKind::Textures}) {
        const QString list = QStringLiteral("cbo%1").arg(QLatin1String(StemOf(kind)));
        // The panel shows the name also of a library that is missing or cannot be read.
        const auto* shown = m_material->findChild<QComboBox*>(list);
        if (shown != nullptr && !shown->placeholderText().isEmpty()) {
            m_host.Settings().SetLibraryName(StemOf(kind), shown->placeholderText().toStdString());
        }
    }
}

}  // namespace studio
