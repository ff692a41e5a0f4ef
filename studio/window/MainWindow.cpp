#include "MainWindow.h"

#include "DefaultScene.h"
#include "EventLog.h"
#include "MaterialExchange.h"
#include "ModelOpener.h"
#include "OptionsDialog.h"
#include "PanelArea.h"
#include "PanelFill.h"
#include "PluginFolder.h"
#include "PluginTextures.h"
#include "SettingNames.h"
#include "ShapeToolTip.h"
#include "StatusMessage.h"
#include "StatusText.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "StudioIcon.h"
#include "StudioRaytraceServices.h"
#include "UndoKeys.h"
#include "ViewportWidget.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QDockWidget>
#include <QFileInfo>
#include <QStatusBar>

namespace studio {

namespace {

/// What a desktop puts around a window, of which nothing is known before the window is shown.
constexpr QSize kFrame(8, 48);

/// Each may hold two materials for every shape of a large scene.
constexpr int kUndoSteps = 200;

ImportProgram KeepingPictures(ImportProgram importer, std::string folder)
{
    importer.pictureFolder = std::move(folder);
    return importer;
}

}  // namespace

using CorvexMaterial::Material;
using CorvexMaterial::PromptIcon;
using CorvexMaterial::Status;

MainWindow::MainWindow(StudioHost& host, CorvexMaterial::Platform& platform, ImportProgram importer,
                       MaterialLink::Clock clock)
    : m_host(host), m_platform(platform), m_recent(host.Settings()),
      m_warnings(platform.settings, *this), m_exchange(new MaterialExchange(host, importer, *this)),
      m_opener(new ModelOpener(*this,
                               KeepingPictures(std::move(importer), host.State().LibraryFolder())))
{
    m_history.setUndoLimit(kUndoSteps);
    setWindowIcon(StudioIcon());
    setAcceptDrops(true);
    BuildStatusBar();
    BuildViewport();
    BuildDock();
    m_link = new MaterialLink({*m_material, m_scene, m_selection, m_history}, std::move(clock));
    m_fill = new PanelFill(*m_material, *m_link, *m_area);
    ConnectPanel();
    ConnectPlugins();
    ConnectLibraries();
    BuildMenus();
    ConnectExchange();
    StartPanel();
    ResetScene();
    RestoreGeometry();
}

// The control saves its state when it goes and calls the host meanwhile; the scene and the history
// are members, so the control and what leans on it have to go before them.
MainWindow::~MainWindow()
{
    DisconnectLibraries();
    m_viewport->SetSource(nullptr);
    m_host.Raytracing().SetAbandoned({});
    m_scene.MarkSelection(nullptr);
    delete m_opener;
    delete m_fill;
    delete m_link;
    delete m_material;
}

void MainWindow::BuildStatusBar()
{
    m_misc = new StatusMessage(this);
    m_misc->setObjectName(QStringLiteral("miscField"));
    connect(&m_selection, &Selection::Changed, this, &MainWindow::TellSelection);
    TellSelection();
    m_position = new QLabel(this);
    m_position->setObjectName(QStringLiteral("positionField"));
    statusBar()->addWidget(m_misc, 1);
    statusBar()->addPermanentWidget(m_position);
}

void MainWindow::TellSelection()
{
    const StudioScene::Shapes& shapes = m_selection.All();
    if (shapes.empty()) {
        m_misc->SetLasting(tr("Click a shape to select it"));
    } else if (shapes.size() == 1) {
        m_misc->SetLasting(tr("%1 selected").arg(QString::fromStdString(shapes.front()->Name())));
    } else {
        m_misc->SetLasting(tr("%1 shapes selected").arg(shapes.size()));
    }
}

void MainWindow::BuildViewport()
{
    m_viewport = new ViewportWidget(m_host.Rendering(), this);
    m_viewport->setMinimumSize(200, 160);
    m_scene.MarkSelection(&m_selection);
    m_viewport->SetSource(&m_scene);
    setCentralWidget(m_viewport);
    connect(m_viewport, &ViewportWidget::clicked, this, &MainWindow::PickAt);
    connect(m_viewport, &ViewportWidget::positionText, m_position, &QLabel::setText);
    new ShapeToolTip(
        *m_viewport, [this](QPoint position) { return ShapeAt(position); },
        [this] { return m_host.Get().customFields.GetCustomMaterialFieldNames(); });
    connect(&m_selection, &Selection::Changed, m_viewport, &ViewportWidget::Draw);
    connect(m_viewport, &ViewportWidget::failed, this, [this](const QString& message) {
        m_host.Log().RecordEvent("Viewport: " + message.toStdString());
        m_misc->Show(message);
    });
}

void MainWindow::BuildDock()
{
    m_area = new PanelArea(this);
    m_material = new Material(m_host.Get(), m_platform, m_area);
    m_area->setWidget(m_material);
    m_dock = new QDockWidget(tr("Material"), this);
    m_dock->setObjectName(QStringLiteral("materialDock"));
    m_dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    m_dock->setWidget(m_area);
    addDockWidget(Qt::RightDockWidgetArea, m_dock);
    new UndoKeys(*m_area, m_area);
    // A floating panel is a window of its own, but what is dropped on it is for this one.
    m_dock->setAcceptDrops(true);
    m_dock->installEventFilter(this);
}

void MainWindow::ConnectPanel()
{
    connect(m_material, &Material::DisplayPositionInformation, m_position, &QLabel::setText);
    connect(m_material, &Material::DisplayMiscInformation, m_misc, &StatusMessage::Show);
    connect(m_material, &Material::evtReqWarn, this,
            [this](const QString& application, const QString& warning, const QString& key) {
                m_warnings.Present(application, warning, key);
            });
    connect(m_link, &MaterialLink::ShapesChanged, m_viewport, &ViewportWidget::Draw);
    const auto report = [this](const QString& what, Status status) { Check(status, what); };
    connect(m_link, &MaterialLink::Failed, this, report);
    connect(m_fill, &PanelFill::Failed, this, report);
    // The control read its own colours again with its layout.
    connect(m_fill, &PanelFill::Changed, this, [this](bool filled) {
        if (!filled) {
            ApplyColours();
        }
    });
    connect(m_opener, &ModelOpener::Opened, this, &MainWindow::ShowModel);
    connect(m_opener, &ModelOpener::Refused, this, &MainWindow::RefuseModel);
    connect(m_opener, &ModelOpener::Cancelled, this, [this](const QString& file) {
        m_misc->Show(tr("%1 was not opened.").arg(QFileInfo(file).fileName()));
        Q_EMIT SceneRefused(m_misc->text());
    });
}

void MainWindow::ConnectPlugins()
{
    connect(&m_host.PluginPictures(), &PluginTextures::Ready, this, [this] {
        m_viewport->Draw();
        Check(m_material->RenderMaterial(), tr("The preview cannot be drawn"));
    });
    connect(&m_host.PluginPictures(), &PluginTextures::Refused, this,
            [this](const QString& message) {
                m_host.Log().RecordEvent(message.toStdString());
                m_misc->Show(message);
            });
}

void MainWindow::ListPlugins()
{
    const QString what = tr("The plug-ins cannot be listed");
    Check(m_material->ClearPluginList(), what);
    for (const std::string& name : m_host.Plugins().Names()) {
        Check(m_material->AddToPluginList(name), what);
    }
    for (const QString& message : m_host.Plugins().Messages()) {
        m_host.Log().RecordEvent(message.toStdString());
        m_misc->Show(message);
    }
}

void MainWindow::StartPanel()
{
    const bool firstStart = !m_host.Settings().HasPanelLayout();
    const QString what = tr("The material panel did not start completely");
    if (firstStart) {
        ProvideFirstLibraries();
        ProvideColours(m_host.Settings());
    }
    ListPlugins();
    Check(m_material->SetSceneDetails(m_host.SceneGraph()), what);
    Check(m_material->InitializeMaterialPreviewScene(), tr("The preview cannot be built"));
    Check(m_material->LoadSavedStatus(), tr("The saved material cannot be read"));
    ApplyColours();
    if (firstStart) {
        Check(m_material->put_bMaterialPanel(true), what);
        Check(m_material->put_bMaterialLibraryPanel(true), what);
    }
}

void MainWindow::ApplyColours()
{
    const StudioColours colours = ReadColours(m_host.Settings());
    m_viewport->SetBackground(colours.viewport);
    m_viewport->Draw();
    Check(
        m_material->SetBackColor(colours.preview, colours.materialLibrary, colours.textureLibrary),
        tr("The background colours cannot be set"));
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
    if (m_dock->isFloating()) {
        QMetaObject::invokeMethod(m_dock, &QWidget::raise, Qt::QueuedConnection);
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
            Tell(QString::fromStdString(failure.what()), PromptIcon::Exclamation);
        } catch (const CorvexMaterial::Error& error) {
            m_host.Log().RecordEvent(error.what());
            if (m_quitsUnasked) {
                return true;
            }
            const QString question = tr("%1\n\nThe material and the layout of the panel would be "
                                        "lost. Quit all the same?")
                                         .arg(QString::fromStdString(error.what()));
            return m_platform.prompts.AskYesNo(
                {PromptIcon::Exclamation, "Corvex", question.toStdString()});
        }
    }
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    m_warnings.CloseAll();
    if (!SettingsAreSaved()) {
        event->ignore();
        return;
    }
    SaveLayout();
    QMainWindow::closeEvent(event);
}

void MainWindow::SaveLayout()
{
    // A layout that fills the dock is not the user's own, which is in the settings already.
    if (!m_fill->Filled()) {
        Check(m_material->SaveStatus(), tr("The layout cannot be saved"));
    }
}

void MainWindow::Save()
{
    static_cast<void>(SettingsAreSaved());
    SaveLayout();
}

void MainWindow::Tell(const QString& text, PromptIcon icon)
{
    m_platform.prompts.Show({icon, "Corvex", text.toStdString()});
}

// The control has told the user about an error already; the window says what it means for the work
// at hand.
void MainWindow::Check(Status status, const QString& what)
{
    if (status == Status::Success) {
        return;
    }
    const QString text = tr("%1: %2.").arg(what, TextOf(status));
    m_host.Log().RecordEvent(text.toStdString());
    m_misc->Show(text);
}

}  // namespace studio
