#include "PanelDock.h"

#include "MaterialVariants.h"
#include "OptionsDialog.h"
#include "PanelArea.h"
#include "PanelFill.h"
#include "PlacementEditing.h"
#include "PluginFolder.h"
#include "PluginTextures.h"
#include "ScenePane.h"
#include "SqliteMaterialLibrary.h"
#include "StudioHost.h"
#include "StudioSettings.h"
#include "VariantBar.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"

#include <QBoxLayout>
#include <QDockWidget>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QMenu>

namespace studio {

using CorvexMaterial::Material;
using CorvexMaterial::Status;

namespace {

constexpr int kAffectsMargin = 6;

}  // namespace

PanelDock::PanelDock(const Parts& parts, MaterialLink::Clock clock)
    : m_parts(parts), m_warnings(parts.platform.settings, parts.window),
      m_affects(new QLabel(&parts.window)), m_area(new PanelArea(&parts.window)),
      m_material(new Material(parts.host.Get(), parts.platform, m_area)),
      m_link(
          new MaterialLink({*m_material, parts.scene.Scene(), parts.scene.Selected(), parts.history,
                            [&host = parts.host] { return host.Materials().TakenEntry(); }},
                           std::move(clock))),
      m_placement(new PlacementEditing(
          {parts.scene.Viewport(), *m_material, *m_link, parts.scene.Selected()}, this)),
      m_fill(new PanelFill(*m_material, *m_area)),
      m_dock(new QDockWidget(tr("Material"), &parts.window))
{
    Build();
    ConnectPanel();
    ConnectPlugins();
}

// The control saves its state when it goes and calls the host meanwhile, so it and what leans on it
// go before the scene and the history; the dock goes later, with the window.
PanelDock::~PanelDock()
{
    delete m_fill;
    delete m_placement;
    delete m_link;
    delete m_material;
}

void PanelDock::Build()
{
    m_variants = new MaterialVariants(*m_link, m_parts.scene.Selected(), this);
    connect(m_variants, &MaterialVariants::ShapesChanged, &m_parts.scene.Viewport(),
            &ViewportWidget::Draw);
    m_area->setWidget(m_material);
    m_affects->setObjectName(QStringLiteral("lblAffects"));
    m_affects->setWordWrap(true);
    m_affects->setMargin(kAffectsMargin);
    m_affects->hide();
    auto* panel = new QWidget(m_dock);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new VariantBar(*m_variants, m_parts.scene.Viewport(), panel));
    column->addWidget(m_affects);
    column->addWidget(m_area);
    m_dock->setObjectName(QStringLiteral("materialDock"));
    m_dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    m_dock->setWidget(panel);
    m_parts.window.addDockWidget(Qt::RightDockWidgetArea, m_dock);
}

void PanelDock::ConnectPanel()
{
    WindowMessages& messages = m_parts.messages;
    connect(m_material, &Material::DisplayPositionInformation, &messages,
            &WindowMessages::ShowPosition);
    connect(m_material, &Material::DisplayMiscInformation, &messages, &WindowMessages::Show);
    connect(m_material, &Material::evtReqWarn, this,
            [this](const QString& application, const QString& warning, const QString& key) {
                m_warnings.Present(application, warning, key);
            });
    connect(m_link, &MaterialLink::ShapesChanged, &m_parts.scene.Viewport(), &ViewportWidget::Draw);
    connect(m_link, &MaterialLink::Affects, this, &PanelDock::TellAffected);
    const auto report = [&messages](const QString& what, Status status) {
        messages.Check(status, what);
    };
    connect(m_link, &MaterialLink::Failed, this, report);
    connect(m_fill, &PanelFill::Failed, this, report);
    connect(m_placement, &PlacementEditing::NothingToPlace, &messages,
            [&messages] { messages.Show(tr("Select a shape with a texture to place it")); });
    // The control read its own colours again with its layout.
    connect(m_fill, &PanelFill::Changed, this, [this](bool filled) {
        if (!filled) {
            ApplyColours();
        }
    });
}

void PanelDock::TellAffected(std::size_t shapes, std::size_t materials)
{
    m_affects->setText(tr("Affects %1, %2")
                           .arg(tr("%Ln shape(s)", nullptr, static_cast<int>(shapes)),
                                tr("%Ln material(s)", nullptr, static_cast<int>(materials))));
    m_affects->setVisible(shapes > 1);
}

void PanelDock::ConnectPlugins()
{
    const PluginTextures& pictures = m_parts.host.PluginPictures();
    connect(&pictures, &PluginTextures::Ready, this, [this] {
        m_parts.scene.Viewport().Draw();
        m_parts.messages.Check(m_material->RenderMaterial(), tr("The preview cannot be drawn"));
    });
    connect(&pictures, &PluginTextures::Refused, &m_parts.messages, &WindowMessages::ShowAndLog);
}

void PanelDock::ListPlugins()
{
    const QString what = tr("The plug-ins cannot be listed");
    m_parts.messages.Check(m_material->ClearPluginList(), what);
    for (const std::string& name : m_parts.host.Plugins().Names()) {
        m_parts.messages.Check(m_material->AddToPluginList(name), what);
    }
    for (const QString& message : m_parts.host.Plugins().Messages()) {
        m_parts.messages.ShowAndLog(message);
    }
}

void PanelDock::Start(bool isFirstStart)
{
    WindowMessages& messages = m_parts.messages;
    const QString what = tr("The material panel did not start completely");
    ListPlugins();
    messages.Check(m_material->SetSceneDetails(m_parts.host.SceneGraph()), what);
    messages.Check(m_material->InitializeMaterialPreviewScene(), tr("The preview cannot be built"));
    messages.Check(m_material->LoadSavedStatus(), tr("The saved material cannot be read"));
    ApplyColours();
    if (isFirstStart) {
        messages.Check(m_material->put_bMaterialPanel(true), what);
        messages.Check(m_material->put_bMaterialLibraryPanel(true), what);
    }
}

void PanelDock::ApplyColours()
{
    ShowColours(ReadColours(m_parts.host.Settings()));
}

void PanelDock::ShowColours(const StudioColours& colours)
{
    m_parts.scene.Viewport().SetBackground(colours.viewport);
    m_parts.scene.Viewport().Draw();
    m_parts.messages.Check(
        m_material->SetBackColor(colours.preview, colours.materialLibrary, colours.textureLibrary),
        tr("The background colours cannot be set"));
}

void PanelDock::AddTo(QMenu& view)
{
    QAction* dock = m_dock->toggleViewAction();
    dock->setText(tr("&Material Panel"));
    dock->setShortcut(QKeySequence(tr("F4")));
    dock->setStatusTip(tr("Shows or hides the panel"));
    view.addAction(dock);
    view.addAction(m_placement->Action());
    QAction* fill = view.addAction(tr("&Fill the Dock"), m_fill, &PanelFill::Fill);
    QAction* saved = view.addAction(tr("Saved &Layout"), m_fill, &PanelFill::Restore);
    fill->setStatusTip(tr("Stretches the libraries over the whole height"));
    saved->setStatusTip(tr("Gives the libraries their own height back"));
    saved->setEnabled(false);
    connect(m_fill, &PanelFill::Changed, this, [fill, saved](bool filled) {
        fill->setEnabled(!filled);
        saved->setEnabled(filled);
    });
}

void PanelDock::AddAbove(QWidget& line)
{
    static_cast<QVBoxLayout*>(m_dock->widget()->layout())->insertWidget(0, &line);
}

void PanelDock::RevealSoon(QWidget& widget)
{
    QMetaObject::invokeMethod(
        &widget, [this, &widget] { m_area->ensureWidgetVisible(&widget); }, Qt::QueuedConnection);
}

void PanelDock::SaveLayout()
{
    // A layout that fills the dock is not the user's own, which is in the settings already.
    if (!m_fill->Filled()) {
        m_parts.messages.Check(m_material->SaveStatus(), tr("The layout cannot be saved"));
    }
}

void PanelDock::RestoreWarnings()
{
    const bool areRestored = m_parts.messages.Telling([this] {
        m_warnings.RestoreAll(QString::fromStdString(m_parts.host.Settings().Application()));
    });
    if (areRestored) {
        m_parts.messages.Show(tr("All messages are shown again."));
    }
}

}  // namespace studio
