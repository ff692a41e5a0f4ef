#include "MainWindow.h"

#include "AboutBox.h"
#include "FileOpening.h"
#include "FileWork.h"
#include "HelpDesk.h"
#include "Hints.h"
#include "HistoryDock.h"
#include "HistoryMenu.h"
#include "HostViewport.h"
#include "LargePreview.h"
#include "LibraryLinks.h"
#include "LinkBar.h"
#include "MaterialCopying.h"
#include "MaterialExchange.h"
#include "MaterialNaming.h"
#include "ModelFiles.h"
#include "OpenDocument.h"
#include "OptionsDialog.h"
#include "OptionsEditing.h"
#include "OutlinerDock.h"
#include "PanelDock.h"
#include "PanelLibraries.h"
#include "SceneExchange.h"
#include "ScenePane.h"
#include "SceneRaytracing.h"
#include "SettingNames.h"
#include "ShapeHiding.h"
#include "ShapeMenu.h"
#include "StudioHost.h"
#include "StudioIcon.h"
#include "StudioSettings.h"
#include "TextureFinder.h"
#include "UndoKeys.h"
#include "ViewMenu.h"
#include "ViewportWidget.h"
#include "WindowFiles.h"
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

}  // namespace

MainWindow::MainWindow(StudioHost& host, CorvexMaterial::Platform& platform,
                       const ImportProgram& importer, MaterialLink::Clock clock)
    : m_host(host),
      m_messages(std::make_unique<WindowMessages>(host.Log(), platform.prompts, *this)),
      m_work(std::make_unique<FileWork>(*m_messages, *this)),
      m_scene(std::make_unique<ScenePane>(host, *m_messages, *this)),
      m_hiding(std::make_unique<ShapeHiding>(m_scene->Scene(), m_scene->Selected(), m_history)),
      m_views(std::make_unique<ViewMenu>(ViewMenu::Parts{*m_scene, m_history, *this})),
      m_shapes(std::make_unique<ShapeMenu>(ShapeMenu::Parts{*m_scene, *m_hiding, *m_views})),
      m_panel(std::make_unique<PanelDock>(
          PanelDock::Parts{host, platform, *m_messages, *m_scene, m_history, *this},
          std::move(clock))),
      m_largePreview(std::make_unique<LargePreview>(LargePreview::Parts{
          host.Rendering(), m_panel->Link(), m_scene->Selected(), host.Preview(), *this})),
      m_libraries(std::make_unique<PanelLibraries>(host, *m_messages, *m_panel)),
      m_links(std::make_unique<LibraryLinks>(
          LibraryLinks::Parts{host, *m_messages, *m_scene, m_panel->Link(), *m_libraries})),
      m_exchange(std::make_unique<MaterialExchange>(host, *m_messages, importer, *m_work, *this)),
      m_files(std::make_unique<WindowFiles>(WindowFiles::Parts{host, *m_messages, *m_scene,
                                                               m_history, *m_panel, *m_libraries,
                                                               *m_exchange, *m_work, *this},
                                            importer)),
      m_handing(std::make_unique<SceneExchange>(
          SceneExchange::Parts{host, *m_messages, *m_scene, *m_exchange, *m_work, *this})),
      m_raytracing(std::make_unique<SceneRaytracing>(
          SceneRaytracing::Parts{host, platform.processes, *m_messages, *m_scene, *m_work, *this})),
      m_textures(std::make_unique<TextureFinder>(
          TextureFinder::Parts{*m_messages, m_scene->Scene(), m_panel->Link(),
                               [this] { return m_files->Opening().Folder(); }, *this})),
      m_naming(std::make_unique<MaterialNaming>(
          MaterialNaming::Parts{*m_messages, *m_scene, m_panel->Link(), *this})),
      m_outliner(std::make_unique<OutlinerDock>(
          OutlinerDock::Parts{host.Settings(), *m_messages, *m_scene, *m_hiding, m_panel->Link(),
                              *m_naming, *m_links, m_history, *this})),
      m_copying(std::make_unique<MaterialCopying>(
          MaterialCopying::Parts{*m_messages, *m_scene, m_panel->Panel(), m_panel->Link()})),
      m_options(std::make_unique<OptionsEditing>(OptionsEditing::Parts{
          host, platform.processes, platform.choosers, *m_messages, *m_scene, *m_panel, *this}))
{
    m_help = new HelpDesk(*this);
    m_hints = new Hints(m_scene->Viewport());
    setWindowIcon(StudioIcon());
    ConnectParts();
    BuildMenus();
    Start();
    RestoreGeometry();
}

MainWindow::~MainWindow() = default;

void MainWindow::ConnectParts()
{
    m_libraries->DropOn(*m_scene, *m_links);
    m_panel->AddAbove(
        *new LinkBar(*m_links, m_scene->Selected(), m_history, m_panel->Dock().widget()));
    new UndoKeys(m_panel->Panel(), m_history, m_libraries->History(), m_libraries.get());
    connect(m_files.get(), &WindowFiles::SceneOpened, this, &MainWindow::SceneOpened);
    connect(m_files.get(), &WindowFiles::SceneRefused, this, &MainWindow::SceneRefused);
    connect(m_exchange.get(), &MaterialExchange::SearchWanted, m_textures.get(),
            &TextureFinder::ChooseFolder);
    ConnectHints();
    connect(m_largePreview.get(), &LargePreview::ViewMade, this,
            [this](ViewportWidget& view) { m_host.Viewports().Join(view); });
    connect(m_hiding.get(), &ShapeHiding::Changed, &m_scene->Viewport(), &ViewportWidget::Draw);
    // A step may have given the selected shapes another material.
    connect(&m_history, &QUndoStack::indexChanged, m_scene.get(), &ScenePane::TellSelection);
    connect(m_exchange.get(), &MaterialExchange::Imported, m_libraries.get(),
            &PanelLibraries::ShowImported);
    connect(m_options.get(), &OptionsEditing::ThemeWanted, this, &MainWindow::ThemeWanted);
}

void MainWindow::ConnectHints()
{
    const auto done = [this](Hints::Step step) { return [this, step] { m_hints->Done(step); }; };
    connect(&m_scene->Selected(), &Selection::Changed, m_hints, done(Hints::Step::Select));
    connect(&m_history, &QUndoStack::indexChanged, m_hints, done(Hints::Step::Edit));
    connect(&m_scene->Viewport(), &ViewportWidget::interactionFinished, m_hints,
            done(Hints::Step::Look));
    connect(&m_history, &QUndoStack::indexChanged, m_hints, done(Hints::Step::Take));
    connect(&m_history, &QUndoStack::cleanChanged, m_hints, done(Hints::Step::Save));
    connect(m_hints, &Hints::Ended, this,
            [this] { m_host.Settings().SetNumber(kFirstStepsSetting, 0); });
}

void MainWindow::BuildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    m_files->AddTo(*file);
    m_textures->AddTo(*file);
    file->addSeparator();
    m_raytracing->AddTo(*file);
    file->addSeparator();
    m_handing->AddTo(*file);
    m_exchange->AddTo(*file);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence(tr("Ctrl+Q")), this, &MainWindow::close)
        ->setStatusTip(tr("Ends the program"));

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    AddHistory(*edit, m_history, HistoryKeys::Standard);
    edit->addSeparator();
    m_copying->AddTo(*edit);
    edit->addSeparator();
    m_scene->AddSelectionTo(*edit);
    m_shapes->AddTo(*edit);
    edit->addSeparator();
    m_naming->AddTo(*edit);
    QMenu* linked = edit->addMenu(tr("Li&nked Material"));
    linked->menuAction()->setStatusTip(tr("Updates what came out of a library, or puts it back"));
    m_links->FillWhenOpened(*linked);
    edit->addSeparator();
    m_options->AddTo(*edit);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    m_scene->AddFramingTo(*view);
    m_views->AddTo(*view);
    view->addSeparator();
    m_panel->AddTo(*view);
    m_outliner->AddTo(*view);
    m_largePreview->AddTo(*view);
    AddHistoryDock(*this, *view, m_history);

    m_libraries->AddTo(*menuBar());

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    m_help->AddTo(*help);
    help->addAction(tr("&First Steps"), m_hints, &Hints::Begin)
        ->setStatusTip(tr("Shows what to do first, one line at a time"));
    help->addSeparator();
    help->addAction(tr("Show Silenced &Messages Again"), m_panel.get(), &PanelDock::RestoreWarnings)
        ->setStatusTip(tr("Messages that were switched off come up again"));
    help->addSeparator();
    help->addAction(tr("&About Corvex Studio"), this, [this] { ShowAbout(*this); })
        ->setStatusTip(tr("The version and what it is made of"));
}

void MainWindow::Start()
{
    const bool isFirstStart = !m_host.Settings().HasPanelLayout();
    if (isFirstStart) {
        PanelLibraries::ProvideFirst(m_host, *m_messages);
    }
    ProvideColours(m_host.Settings());
    m_panel->Start(isFirstStart);
    ResetScene();
}

void MainWindow::OfferFirstSteps()
{
    if (m_host.Settings().Number(kFirstStepsSetting, 1) != 0) {
        m_hints->Begin();
    }
}

void MainWindow::OpenFile(const QString& file)
{
    m_files->Opening().Open(file);
}

void MainWindow::OpenModel(const QString& file)
{
    m_files->Models().Open(file);
}

void MainWindow::ResetScene()
{
    m_files->Models().ShowDefaultScene();
}

void MainWindow::OfferRecovery()
{
    m_files->Recovery().Offer();
}

CorvexMaterial::Material& MainWindow::Panel()
{
    return m_panel->Panel();
}

const StudioScene& MainWindow::Scene() const
{
    return m_scene->Scene();
}

OpenDocument& MainWindow::Document()
{
    return m_files->Document();
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
        m_links->LookAgain();
    }
    if (event->type() == QEvent::ThemeChange) {
        Q_EMIT DesktopChanged();
    }
    // What stands behind pictures follows the theme too, until the user has chosen it.
    if (event->type() == QEvent::ApplicationPaletteChange && m_panel != nullptr) {
        ProvideColours(m_host.Settings());
        m_panel->ApplyColours();
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
        if (m_quitsUnasked) {
            m_work->Cancel();
        }
        constexpr std::chrono::milliseconds kUntilNextTry{100};
        QTimer::singleShot(kUntilNextTry, this, &QWidget::close);
        event->ignore();
        return;
    }
    const bool mayGo = m_quitsUnasked || m_files->MayGo();
    if (!mayGo || !SettingsAreSaved()) {
        event->ignore();
        return;
    }
    m_panel->SaveLayout();
    if (m_quitsUnasked) {
        m_files->Recovery().Leave();
    }
    QMainWindow::closeEvent(event);
}

void MainWindow::Save()
{
    static_cast<void>(SettingsAreSaved());
    m_panel->SaveLayout();
}

}  // namespace studio
