#include "MaterialEditor.h"

#include "AdvancedPanel.h"
#include "AttributePanel.h"
#include "ChannelPanel.h"
#include "CustomFieldsPanel.h"
#include "LibraryPanel.h"
#include "NumberInput.h"
#include "PluginPanel.h"
#include "PreviewPanel.h"
#include "PrimitivePictures.h"
#include "RaytraceFlow.h"
#include "SurfacePanel.h"
#include "TexturePage.h"
#include "frmPreviewPrimitiveDialog.h"
#include <CorvexMaterial/IMaterial.h>

#include <QAbstractButton>
#include <QPointer>

namespace CorvexMaterial {

namespace {

/// What the advanced page puts back.
const TouchedRows kAdvancedRows{{Attribute::AlphaTest},
                                {Attribute::TextureAlphaChannelUse},
                                {Attribute::AlphaIsTransparent},
                                {Attribute::DoubleSided}};

TouchedRows FactoryRows()
{
    TouchedRows rows = RowsOfMaterial();
    rows.push_back({Attribute::ApplyRelative});
    return rows;
}

/// Colour and amounts.
TouchedRows SurfaceRows()
{
    TouchedRows rows;
    for (const AttributeRow& row : AttributeRows()) {
        if (row.group == AttributeGroup::Surface && row.kind != AttributeKind::Flag) {
            rows.push_back({row.attribute});
        }
    }
    return rows;
}

}  // namespace

MaterialEditor::MaterialEditor(Host& host, Platform& platform, IMaterial& control, QWidget& widget)
    : m_host(host), m_platform(platform), m_control(control), m_widget(widget),
      m_errorHandler(platform.prompts, host.diagnostics, host.applicationState),
      m_trap(m_errorHandler), m_form({host, platform, *this, m_trial}, m_trap, widget),
      m_attributes(m_form.Attributes()), m_preview(m_form.Preview()),
      m_gatherer(control, m_attributes),
      m_savedState(platform.settings,
                   [&host] { return host.applicationState.SettingsApplicationName(); }),
      m_layout(m_trap, m_form, m_savedState),
      m_materialLibrary(
          {m_trap, host, platform, m_form.Materials(), m_attributes.MaterialLibrary()}, m_gatherer,
          [this](const CorvexDB::udtMaterial& material) {
              EditWhole(RowsOfMaterial(), [&] { m_attributes.ShowRecord(material); });
          }),
      m_textureLibrary({m_trap, host, platform, m_form.Textures(), m_attributes.TextureLibrary()},
                       m_form.Attributes().Channels(), *this),
      m_raytrace(std::make_unique<RaytraceFlow>(*this, platform, control, widget))
{
    ConnectAttributes();
    ConnectChannels();
    ConnectPlugins();
    ConnectPreview();
    ConnectLibraries();
    m_trap("MaterialEditor", [this] { FillCustomFields(); });
    UpdatePrimitivePicture();
}

MaterialEditor::~MaterialEditor()
{
    // The panels go while all that they report to still lives; what they say now is no edit.
    ++m_batchDepth;
    delete &m_form.Picture();
}

void MaterialEditor::ConnectAttributes()
{
    AttributePanel& panel = m_form.Attributes();
    connect(&panel, &AttributePanel::Edited, this, &MaterialEditor::OnEdited);
    connect(&panel, &AttributePanel::RememberPressed, this, [this] {
        m_trap("cmdMaterialRemember", [this] { m_savedState.Remember(m_attributes); });
    });
    connect(&panel, &AttributePanel::UserDefaultsPressed, this, [this] {
        m_trap("cmdMaterialResetUserDefaults", [this] {
            EditWhole(SavedState::RowsOfUserDefaults(),
                      [this] { m_savedState.ResetToUser(m_attributes); });
        });
    });
    connect(&panel, &AttributePanel::FactoryDefaultsPressed, this, [this] {
        m_trap("cmdMaterialResetDefaults",
               [this] { EditWhole(FactoryRows(), [this] { ResetToFactory(); }); });
    });
    connect(&panel.Surface(), &SurfacePanel::ResetPressed, this, [this] {
        m_trap("cmdMiscellaneousResetToDefaults",
               [this] { EditAtOnce(SurfaceRows(), [this] { ResetMiscellaneous(); }); });
    });
    connect(&panel.Advanced(), &AdvancedPanel::ResetPressed, this, [this] {
        m_trap("cmdAdvancedOptionsResetDefaults",
               [this] { EditAtOnce(kAdvancedRows, [this] { ShowFactory(kAdvancedRows); }); });
    });
}

void MaterialEditor::ConnectChannels()
{
    ChannelPanel& channels = m_form.Attributes().Channels();
    connect(&channels, &ChannelPanel::WarningRequested, this,
            [this](const QString& text, const QString& key) {
                RequestWarning(text.toStdString(), key.toStdString());
            });
    connect(&channels, &ChannelPanel::CustomFieldsShown, this,
            [this] { m_trap("tabChannels", [this] { FillCustomFields(); }); });
}

void MaterialEditor::ConnectPlugins()
{
    PluginPanel& plugins = m_form.Attributes().Plugins();
    connect(&plugins, &PluginPanel::PluginMissing, this, [this](const QString& name) {
        Q_EMIT StatusText(
            tr("The plug-in %1 is not installed; its name and values are kept.").arg(name));
    });
    connect(&plugins, &PluginPanel::RememberPressed, this, [this] {
        m_trap("cmdRemember", [this] { m_savedState.RememberPluginParameters(m_attributes); });
        m_trap("cmdRemember", [this] { RefreshPreviewMaterial(); });
    });
    connect(&plugins, &PluginPanel::ResetPressed, this, [this] {
        m_trap("cmdReset", [this] {
            EditAtOnce({{Attribute::Plugin}}, [this] {
                m_attributes.ShowPluginParameters(m_attributes.PluginParameterDefaults());
            });
        });
    });
    connect(&plugins, &PluginPanel::ResetUserPressed, this, [this] {
        m_trap("cmdResetUser", [this] {
            EditAtOnce({{Attribute::Plugin}}, [this] {
                m_attributes.ShowPluginParameters(m_savedState.UserPluginParameters(m_attributes));
            });
        });
    });
}

void MaterialEditor::ConnectPreview()
{
    PreviewPanel& panel = m_form.Preview();
    connect(&panel, &PreviewPanel::PositionTextChanged, this, &MaterialEditor::PositionText);
    connect(&panel, &PreviewPanel::ViewTouched, this, [this] {
        if (m_trialFlow.IsOn()) {
            return m_trialFlow.Show();
        }
        const modCorvexGeneralErrorHandler::TellOnce once(m_errorHandler);
        m_trap("dfvMaterialViewport", [this] { RefreshPreviewMaterial(); });
    });
    connect(&panel, &PreviewPanel::PrimitivePressed, this,
            [this] { m_trap("cmdPreviewPrimitive", [this] { OpenPrimitiveDialog(); }); });
    connect(&panel, &PreviewPanel::RaytracePressed, this,
            [this] { m_trap("cmdPreview", [this] { m_raytrace->RaytracePreview(); }); });
    connect(&panel, &PreviewPanel::ExtendedPressed, this,
            [this] { m_trap("cmdMaterialExtended", [this] { m_raytrace->EditAttributes(); }); });
}

void MaterialEditor::ConnectLibraries()
{
    const std::initializer_list<LibraryFlow*> flows{&m_materialLibrary, &m_textureLibrary};
    for (LibraryFlow* flow : flows) {
        connect(flow, &LibraryFlow::StatusText, this, &MaterialEditor::StatusText);
        connect(flow, &LibraryFlow::WarningRequested, this,
                [this](const QString& text, const QString& key) {
                    RequestWarning(text.toStdString(), key.toStdString());
                });
    }
}

void MaterialEditor::OnEdited(const TouchedRows& touched)
{
    m_gatherer.Forget();
    if (m_batchDepth == 0) {
        m_pending.Touch(touched);
        const modCorvexGeneralErrorHandler::TellOnce once(m_errorHandler);
        m_trap("RefreshPreviewMaterial", [this] {
            m_raytrace->FollowAttributes();
            RefreshPreviewMaterial();
        });
    }
}

void MaterialEditor::Edit(const std::vector<EditedRow>& rows)
{
    CorvexDB::udtMaterial material = m_gatherer.Whole();
    TakeRows(material, rows);
    TouchedRows touched;
    for (const EditedRow& row : rows) {
        touched.push_back({row.attribute, row.element});
    }
    EditAtOnce(touched, [&] {
        m_attributes.ShowRecord(material);
        for (const EditedRow& row : rows) {
            if (row.attribute == Attribute::ApplyRelative) {
                m_attributes.ShowApplyRelative(
                    CorvexDB::ApplyMode{std::get<std::int32_t>(row.value)});
            }
        }
    });
}

void MaterialEditor::RequestWarning(std::string_view text, std::string_view key)
{
    m_trap("evtReqWarn", [&] {
        const std::string application = m_host.applicationState.SettingsApplicationName();
        Q_EMIT WarningRequested(QString::fromStdString(application), QString::fromUtf8(text),
                                QString::fromUtf8(key));
    });
}

void MaterialEditor::ApplyToPreview()
{
    m_gatherer.Forget();
    CorvexSG::Scene& scene = m_preview.Scene();
    m_form.Attributes().Channels().RefreshThumbnail();
    m_preview.ShowPrimitive(m_attributes.PreviewPrimitive());
    if (const auto shape = m_preview.Shape()) {
        Require(m_control.ApplyShapeMaterial(scene, *shape, true, scene.RootGroup(),
                                             scene.CameraGroup(), {}, {}, false,
                                             {CorvexSG::CoordinateMode::FromWrap}, {}));
    }
}

void MaterialEditor::ApplyAndDraw()
{
    ApplyToPreview();
    if (m_preview.IsBuilt()) {
        m_preview.Redraw();
    }
}

void MaterialEditor::ShowPreview()
{
    const modCorvexGeneralErrorHandler::TellOnce once(m_errorHandler);
    m_trap("RefreshPreviewMaterial", [this] { ApplyAndDraw(); });
}

void MaterialEditor::RefreshPreviewMaterial()
{
    ApplyAndDraw();
    TellHost();
}

// Shapes take the whole material in every mode but one.
MaterialEdit MaterialEditor::EditWithValues()
{
    const auto gathered = m_gatherer.Gather();
    MaterialEdit edit = gathered->applyMode == CorvexDB::ApplyMode::FilesOnly
                            ? m_pending.WithValues(m_gatherer.Whole(), gathered->applyMode)
                            : m_pending.WithValues(gathered->material, gathered->applyMode);
    edit.gesture = GestureOf(edit.rows);
    return edit;
}

std::uint32_t MaterialEditor::GestureOf(const std::vector<EditedRow>& rows)
{
    for (const EditedRow& row : rows) {
        for (const QWidget* control : ControlsOf({row.attribute, row.element})) {
            const NumberInput* input = NumberInput::Of(*control);
            if (input != nullptr && input->Gesture() != 0) {
                return input->Gesture();
            }
        }
    }
    return 0;
}

void MaterialEditor::TellHost()
{
    const QPointer<MaterialEditor> alive(this);  // the host hears of it and may close the control
    if (!m_pending.IsEmpty()) {
        const MaterialEdit edit = EditWithValues();
        m_pending.Forget();
        if (m_marks.Take(edit.rows)) {
            m_form.Attributes().Channels().RefreshThumbnail();
        }
        Q_EMIT Edited(edit);
    }
    if (alive) {
        Q_EMIT Changed();
    }
}

// The raytrace attributes are seen in a dialog of their own.
std::vector<QWidget*> MaterialEditor::ControlsOf(const TouchedRow& row)
{
    return RowOf(row.attribute).group == AttributeGroup::Raytrace
               ? std::vector<QWidget*>{&m_form.Preview().ExtendedButton()}
               : m_attributes.ControlsOf(row);
}

void MaterialEditor::ShowDifferences(const std::vector<DifferingRow>& rows)
{
    if (rows.empty() && m_marks.Rows().empty()) {
        return;
    }
    m_marks.Show(rows);
    m_form.Attributes().Channels().RefreshThumbnail();
}

void MaterialEditor::RenderMaterial()
{
    m_preview.RedrawNudged();
    if (m_form.Textures().IsExpanded()) {
        m_form.Textures().Browser().Redraw();
    }
    if (m_form.Materials().IsExpanded()) {
        // Twice on purpose: a browser may lay its thumbnails out in one pass and draw them in the
        // next.
        m_form.Materials().Browser().Redraw();
        m_form.Materials().Browser().Redraw();
    }
}

void MaterialEditor::InitializePreview()
{
    // The meshes that were read are shown although a later one failed.
    const Status loaded = m_trap("InitializeMaterialPreviewScene",
                                 [this] { m_preview.LoadMeshes(m_platform.library.Folder()); });
    if (m_preview.IsBuilt()) {
        RefreshPreviewMaterial();
    }
    Require(loaded);
}

void MaterialEditor::SetPreviewPrimitive(std::int32_t code)
{
    ChangeAtOnce([&] { m_attributes.ShowPreviewPrimitive(code); });
}

void MaterialEditor::ResetDevices()
{
    m_preview.ResetDevice();
    m_form.Attributes().Channels().RebuildThumbnails();
    UpdatePrimitivePicture();
    RefreshPreviewMaterial();
}

void MaterialEditor::OpenPrimitiveDialog()
{
    const QPointer<frmPreviewPrimitiveDialog> dialog = new frmPreviewPrimitiveDialog(&m_widget);
    dialog->exec();
    if (!dialog) {
        return;  // the host has closed the control, and this object with it
    }
    const std::unique_ptr<frmPreviewPrimitiveDialog> closed(dialog);
    if (closed->SelectedPrimitive() >= 0) {
        SetPreviewPrimitive(closed->SelectedPrimitive());
    }
    RenderMaterial();
}

void MaterialEditor::FollowAttributes()
{
    UpdatePrimitivePicture();
    m_raytrace->FollowAttributes();
}

bool MaterialEditor::SimulationTextureActive()
{
    return m_raytrace->SimulationTextureActive();
}

std::string MaterialEditor::TextureLibraryFile()
{
    return m_attributes.TextureLibrary();
}

void MaterialEditor::ClearPlugins()
{
    PluginPanel& plugins = m_form.Attributes().Plugins();
    if (plugins.SelectedName().empty()) {
        plugins.Clear();
    } else {
        ChangeAtOnce([&plugins] { plugins.Clear(); });
    }
}

void MaterialEditor::FillCustomFields()
{
    m_form.Attributes().CustomFields().ShowNames(m_host.customFields.GetCustomMaterialFieldNames());
}

void MaterialEditor::UpdatePrimitivePicture()
{
    m_form.Preview().PrimitiveButton().setIcon(PrimitivePicture(m_attributes.PreviewPrimitive()));
}

void MaterialEditor::LoadSavedStatus()
{
    ChangeSilently([this] {
        m_form.Attributes().Advanced().FillAlphaTests();
        m_savedState.Load(m_attributes);
    });
    // A library or a layout that cannot be read must not keep the attributes from being applied.
    const Status libraries = LoadSavedLibraries();
    const Status layout = m_trap("saved layout", [this] { m_layout.Restore(); });
    RefreshPreviewMaterial();
    Require(layout);
    Require(libraries);
}

// One that cannot be read must not keep the other from being shown; a missing one is no failure.
Status MaterialEditor::LoadSavedLibraries()
{
    bool areKept = false;
    const Status asked = m_trap(
        "LibraryFolder", [&] { areKept = !m_host.applicationState.LibraryFolder().empty(); });
    if (!areKept) {
        return asked;
    }
    const Status textures = m_trap("LoadTextureLibrary", [this] {
        m_textureLibrary.Load(std::string(m_attributes.TextureLibrary()));
    });
    const Status materials = m_trap("LoadMaterialLibrary", [this] {
        m_materialLibrary.Load(std::string(m_attributes.MaterialLibrary()));
    });
    return textures != Status::Success ? textures : materials;
}

void MaterialEditor::ResetToFactory()
{
    ChangeAtOnce([this] { m_savedState.ResetToFactory(m_attributes); });
}

void MaterialEditor::ResetMiscellaneous()
{
    ChangeAtOnce([this] { ShowFactory(SurfaceRows()); });
}

void MaterialEditor::ShowFactory(const TouchedRows& rows)
{
    for (const TouchedRow& row : rows) {
        m_attributes.Show(row.attribute, std::string(FactoryText(row.attribute)));
    }
}

void MaterialEditor::Terminate()
{
    m_trial.Reject();
    m_trap("Terminate",
           [this] { m_host.diagnostics.RecordEvent("Material instance terminating"); });
    m_trap("Terminate", [this] { m_savedState.SaveAtTerminate(m_attributes); });
    m_trap("Terminate", [this] { m_host.diagnostics.RecordEvent("Material instance terminated"); });
}

}  // namespace CorvexMaterial
