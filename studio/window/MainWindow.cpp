#include "MainWindow.h"

#include "AboutBox.h"
#include "DocumentMenu.h"
#include "DocumentWork.h"
#include "FileOpening.h"
#include "HistoryMenu.h"
#include "MaterialExchange.h"
#include "MaterialNaming.h"
#include "ModelFiles.h"
#include "OpenDocument.h"
#include "OpeningReport.h"
#include "OptionsDialog.h"
#include "OptionsEditing.h"
#include "PanelDock.h"
#include "PanelLibraries.h"
#include "SceneExchange.h"
#include "ScenePane.h"
#include "SceneRaytracing.h"
#include "SettingNames.h"
#include "SourceReloading.h"
#include "SourceSaving.h"
#include "StudioHost.h"
#include "StudioIcon.h"
#include "StudioSettings.h"
#include "TextureFinder.h"
#include "TextureKeeping.h"
#include "WindowMessages.h"
#include "WorkRecovery.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>

namespace studio {

namespace {

/// What a desktop puts around a window, of which nothing is known before the window is shown.
constexpr QSize kFrame(8, 48);

/// Each may hold two materials for every shape of a large scene.
constexpr int kUndoSteps = 200;

}  // namespace

MainWindow::MainWindow(StudioHost& host, CorvexMaterial::Platform& platform, ImportProgram importer,
                       MaterialLink::Clock clock)
    : m_host(host),
      m_messages(std::make_unique<WindowMessages>(host.Log(), platform.prompts, *this)),
      m_scene(std::make_unique<ScenePane>(host, *m_messages, *this)),
      m_panel(std::make_unique<PanelDock>(
          PanelDock::Parts{host, platform, *m_messages, *m_scene, m_history, *this},
          std::move(clock))),
      m_libraries(std::make_unique<PanelLibraries>(host, *m_messages, *m_panel)),
      m_exchange(std::make_unique<MaterialExchange>(host, importer, *this)),
      m_openingReport(std::make_unique<OpeningReport>(
          OpeningReport::Parts{*m_messages, *m_scene, *m_exchange})),
      m_work(std::make_unique<DocumentWork>(*this)),
      m_document(
          std::make_unique<OpenDocument>(OpenDocument::Parts{host, *m_scene, m_history, *m_work})),
      m_documentMenu(
          std::make_unique<DocumentMenu>(DocumentMenu::Parts{*m_document, *m_messages, *this})),
      m_models(std::make_unique<ModelFiles>(
          ModelFiles::Parts{host, *m_messages, *m_scene, *m_document, *this}, importer)),
      m_reloading(std::make_unique<SourceReloading>(
          SourceReloading::Parts{host, *m_messages, *m_scene, *m_document, m_history,
                                 *m_openingReport, *this},
          std::move(importer))),
      m_recovery(std::make_unique<WorkRecovery>(
          WorkRecovery::Parts{host, *m_messages, *m_scene, m_history, *m_document, *this})),
      m_opening(std::make_unique<FileOpening>(host.Settings(), *this)),
      m_handing(std::make_unique<SceneExchange>(
          SceneExchange::Parts{host, *m_messages, *m_scene, *m_exchange, *this})),
      m_saving(std::make_unique<SourceSaving>(
          SourceSaving::Parts{*m_messages, *m_scene, *m_exchange, *this})),
      m_raytracing(std::make_unique<SceneRaytracing>(
          SceneRaytracing::Parts{host, platform.processes, *m_messages, *m_scene, *this})),
      m_textures(std::make_unique<TextureFinder>(
          TextureFinder::Parts{*m_messages, m_scene->Scene(), m_panel->Link(),
                               [this] { return m_opening->Folder(); }, *this})),
      m_keeping(std::make_unique<TextureKeeping>(TextureKeeping::Parts{
          *m_document, *m_documentMenu, *m_work, *m_messages, *m_scene, m_panel->Link()})),
      m_naming(std::make_unique<MaterialNaming>(
          MaterialNaming::Parts{*m_messages, *m_scene, m_panel->Link(), *this})),
      m_options(std::make_unique<OptionsEditing>(
          OptionsEditing::Parts{host, platform.processes, *m_messages, *m_scene, *m_panel, *this}))
{
    m_history.setUndoLimit(kUndoSteps);
    setWindowIcon(StudioIcon());
    ConnectParts();
    BuildMenus();
    Start();
    RestoreGeometry();
}

MainWindow::~MainWindow() = default;

void MainWindow::ConnectParts()
{
    m_libraries->DropOn(*m_scene);
    ConnectFiles();
    connect(m_exchange.get(), &MaterialExchange::Refused, m_messages.get(), &WindowMessages::Tell);
    connect(m_exchange.get(), &MaterialExchange::SearchWanted, m_textures.get(),
            &TextureFinder::ChooseFolder);
    // A step may have given the selected shapes another material.
    connect(&m_history, &QUndoStack::indexChanged, m_scene.get(), &ScenePane::TellSelection);
    connect(m_exchange.get(), &MaterialExchange::Imported, m_libraries.get(),
            &PanelLibraries::ShowImported);
}

void MainWindow::ConnectFiles()
{
    connect(m_models.get(), &ModelFiles::Opened, m_saving.get(), &SourceSaving::Remember);
    connect(m_reloading.get(), &SourceReloading::ModelShown, m_saving.get(),
            &SourceSaving::Remember);
    m_opening->AcceptDropsOn(*this);
    // A floating panel is a window of its own, but what is dropped on it is for this one.
    m_opening->AcceptDropsOn(m_panel->Dock());
    connect(m_opening.get(), &FileOpening::DocumentWanted, m_documentMenu.get(),
            &DocumentMenu::Open);
    connect(m_opening.get(), &FileOpening::LibraryWanted, m_libraries.get(), &PanelLibraries::Open);
    connect(m_opening.get(), &FileOpening::MaterialsWanted, m_exchange.get(),
            &MaterialExchange::Import);
    connect(m_opening.get(), &FileOpening::ModelWanted, this, [this](const QString& file) {
        if (m_documentMenu->MayGo()) {
            m_models->Open(file);
        }
    });
    connect(m_recovery.get(), &WorkRecovery::BaseWanted, this, [this](const QString& file) {
        if (!file.isEmpty()) {
            m_opening->Open(file);
        } else if (m_documentMenu->MayGo()) {
            ResetScene();
            m_recovery->TakeUp(file);
        }
    });
    connect(m_document.get(), &OpenDocument::NotBackedUp, m_messages.get(), &WindowMessages::Tell);
    const auto opened = [this](const QString& file) {
        m_opening->Remember(file);
        m_recovery->TakeUp(file);
        Q_EMIT SceneOpened();
    };
    const auto refused = [this](const QString& file, const QString& message) {
        m_opening->Forget(file);
        m_recovery->GiveUp();
        Q_EMIT SceneRefused(message);
    };
    connect(m_models.get(), &ModelFiles::Opened, this,
            [this, opened](const QString& file, const ImportedModel& model) {
                m_openingReport->Tell(tr("Model Opened"), model.report);
                opened(file);
            });
    connect(m_models.get(), &ModelFiles::Refused, this, refused);
    connect(m_documentMenu.get(), &DocumentMenu::Opened, this,
            [this, opened](const QString& file, const QStringList& problems) {
                const QString reason = m_document->ReadOnlyReason();
                m_openingReport->Tell(tr("Document Opened"), problems,
                                      reason.isEmpty() ? reason : tr("Read-only: %1.").arg(reason));
                opened(file);
            });
    connect(m_documentMenu.get(), &DocumentMenu::Refused, this, refused);
    connect(m_documentMenu.get(), &DocumentMenu::Saved, m_opening.get(), &FileOpening::Remember);
}

void MainWindow::BuildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&New"), QKeySequence::New, this, [this] {
        if (m_documentMenu->MayGo()) {
            ResetScene();
        }
    });
    m_opening->AddTo(*file);
    file->addSeparator();
    m_documentMenu->AddTo(*file);
    m_saving->AddTo(*file);
    m_reloading->AddTo(*file);
    m_recovery->AddTo(*file);
    file->addSeparator();
    m_keeping->AddTo(*file);
    m_textures->AddTo(*file);
    file->addSeparator();
    m_raytracing->AddTo(*file);
    file->addSeparator();
    m_handing->AddTo(*file);
    m_exchange->AddTo(*file);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence(tr("Ctrl+Q")), this, &MainWindow::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    AddHistory(*edit, m_history, HistoryKeys::Standard);
    edit->addSeparator();
    m_scene->AddSelectionTo(*edit);
    edit->addSeparator();
    m_naming->AddTo(*edit);
    edit->addSeparator();
    m_options->AddTo(*edit);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    m_scene->AddFramingTo(*view);
    view->addSeparator();
    m_panel->AddTo(*view);

    m_libraries->AddTo(*menuBar());

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("Show Silenced &Messages Again"), m_panel.get(),
                    &PanelDock::RestoreWarnings);
    help->addSeparator();
    help->addAction(tr("&About Corvex Studio"), this, [this] { ShowAbout(*this); });
}

void MainWindow::Start()
{
    const bool isFirstStart = !m_host.Settings().HasPanelLayout();
    if (isFirstStart) {
        PanelLibraries::ProvideFirst(m_host, *m_messages);
        ProvideColours(m_host.Settings());
    }
    m_panel->Start(isFirstStart);
    ResetScene();
}

void MainWindow::OpenFile(const QString& file)
{
    m_opening->Open(file);
}

void MainWindow::OpenModel(const QString& file)
{
    m_models->Open(file);
}

void MainWindow::ResetScene()
{
    m_models->ShowDefaultScene();
}

void MainWindow::OfferRecovery()
{
    m_recovery->Offer();
}

CorvexMaterial::Material& MainWindow::Panel()
{
    return m_panel->Panel();
}

const StudioScene& MainWindow::Scene() const
{
    return m_scene->Scene();
}

QUndoStack& MainWindow::LibraryHistory()
{
    return m_libraries->History();
}

Selection& MainWindow::Selected()
{
    return m_scene->Selected();
}

ViewportWidget& MainWindow::Viewport()
{
    return m_scene->Viewport();
}

QDockWidget& MainWindow::Dock()
{
    return m_panel->Dock();
}

bool MainWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && m_libraries != nullptr) {
        m_libraries->LookForChanges();
    }
    return QMainWindow::event(event);
}

void MainWindow::RestoreGeometry()
{
    const QSize room = screen()->availableSize() - kFrame;
    resize(QSize(1280, 800).boundedTo(room));
    const StudioSettings& settings = m_host.Settings();
    const auto bytes = [&settings](const char* key) {
        return QByteArray::fromBase64(settings.Text(key).toLatin1());
    };
    restoreGeometry(bytes(kGeometrySetting));
    restoreState(bytes(kDocksSetting));
}

// A floating panel is there before the window, and would stay under it.
void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (Dock().isFloating()) {
        QMetaObject::invokeMethod(&Dock(), &QWidget::raise, Qt::QueuedConnection);
    }
}

// Also when the user will do without.
bool MainWindow::SettingsAreSaved()
{
    StudioSettings& settings = m_host.Settings();
    settings.SetText(kGeometrySetting, QString::fromLatin1(saveGeometry().toBase64()));
    settings.SetText(kDocksSetting, QString::fromLatin1(saveState().toBase64()));
    try {
        settings.Flush();
    } catch (const CorvexMaterial::Error& failure) {
        try {
            settings.Flush();
            // A damaged file that has been replaced is told of once.
            m_messages->Tell(QString::fromStdString(failure.what()));
        } catch (const CorvexMaterial::Error& error) {
            const QString cause = QString::fromStdString(error.what());
            m_messages->Log(cause);
            return m_quitsUnasked ||
                   m_messages->Ask(tr("%1\n\nThe material and the layout of the panel would be "
                                      "lost. Quit all the same?")
                                       .arg(cause));
        }
    }
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    m_panel->CloseWarnings();
    if (m_work->IsBusy()) {
        constexpr std::chrono::milliseconds kUntilNextTry{100};
        QTimer::singleShot(kUntilNextTry, this, &QWidget::close);
        event->ignore();
        return;
    }
    const bool mayGo = m_quitsUnasked || m_documentMenu->MayGo();
    if (!mayGo || !SettingsAreSaved()) {
        event->ignore();
        return;
    }
    m_panel->SaveLayout();
    if (m_quitsUnasked) {
        m_recovery->Leave();
    }
    QMainWindow::closeEvent(event);
}

void MainWindow::Save()
{
    static_cast<void>(SettingsAreSaved());
    m_panel->SaveLayout();
}

}  // namespace studio
