#include <CorvexMaterial/Material.h>

#include "AttributePanel.h"
#include "ChannelPanel.h"
#include "LibraryPanel.h"
#include "MaterialEditor.h"
#include "PlacementPanel.h"
#include "PluginPanel.h"
#include "PreviewPanel.h"
#include "QtControlLibrary.h"
#include "SectionHeader.h"
#include "TexturePage.h"

#include <QAbstractButton>

namespace CorvexMaterial {

namespace {

// The user has been told about a missing library.
Status StatusOf(LibraryFlow::Outcome outcome)
{
    return outcome == LibraryFlow::Outcome::Loaded ? Status::Success : Status::FileFailed;
}

}  // namespace

Material::Material(Host& host, Platform& platform, QWidget* parent) : QWidget(parent)
{
    m_editor = std::make_unique<MaterialEditor>(host, platform, *this, *this);
    OfferImageFormats();
    connect(m_editor.get(), &MaterialEditor::Edited, this, &Material::Edited);
    connect(m_editor.get(), &MaterialEditor::Changed, this, &Material::MaterialChanged);
    connect(&m_editor->Previewing(), &TrialFlow::Previewed, this, &Material::Previewed);
    connect(&m_editor->Previewing(), &TrialFlow::PreviewEnded, this, &Material::PreviewEnded);
    connect(&m_editor->Layout(), &LayoutFlow::TextureLibraryExpanded, this,
            &Material::TextureLibraryExpanded);
    connect(&m_editor->Layout(), &LayoutFlow::MaterialLibraryExpanded, this,
            &Material::MaterialLibraryExpanded);
    connect(m_editor.get(), &MaterialEditor::PositionText, this,
            &Material::DisplayPositionInformation);
    connect(m_editor.get(), &MaterialEditor::StatusText, this, &Material::DisplayMiscInformation);
    connect(m_editor.get(), &MaterialEditor::WarningRequested, this, &Material::evtReqWarn);
    connect(&m_editor->Form().Attributes().Channels().Textures().Placing(),
            &PlacementPanel::HandlesToggled, this, &Material::PlacementHandlesToggled);
}

Material::~Material()
{
    m_editor->Terminate();
}

void Material::EndPreview()
{
    m_editor->Tried().Accept();
}

Status Material::SetRaytraceButtonImage(const QIcon& Image)
{
    return m_editor->Guard()("SetRaytraceButtonImage",
                             [&] { m_editor->Form().Preview().RaytraceButton().setIcon(Image); });
}

Status Material::DefaultMaterial()
{
    return m_editor->Guard()("DefaultMaterial", [&] { m_editor->ResetToFactory(); });
}

Status Material::LoadSavedStatus()
{
    return m_editor->Guard()("LoadSavedStatus", [&] { m_editor->LoadSavedStatus(); });
}

Status Material::SetMaxStatus(const std::int32_t& lAvailableSpace)
{
    return m_editor->Guard()("SetMaxStatus",
                             [&] { m_editor->Layout().ShareHeight(lAvailableSpace); });
}

Status Material::SaveStatus()
{
    return m_editor->Guard()("SaveStatus", [&] { m_editor->Layout().Save(); });
}

Status Material::RenderMaterial()
{
    return m_editor->Guard()("RenderMaterial", [&] { m_editor->RenderMaterial(); });
}

Status Material::InitializeMaterialPreviewScene()
{
    return m_editor->Guard()("InitializeMaterialPreviewScene",
                             [&] { m_editor->InitializePreview(); });
}

Status Material::ApplyShapeMaterial(
    CorvexSG::Scene& oScene, CorvexSG::Shape& csShape, const bool& bWrap, CorvexSG::Group* cgGroup,
    CorvexSG::Group* cgCamera, const CorvexSG::udtSelectionType& udtSelectionType,
    const LongArray& laSelectionDataLongs, const bool& bOptimizePoints,
    const CorvexSG::cdtCoordinateMode& cdtCoordinateMode, const SingleArray& saCoordinateModeData)
{
    return m_editor->Guard()("ApplyShapeMaterial", [&] {
        const CorvexSG::MaterialApplication application{m_editor->Gatherer().Gather(),
                                                        oScene,
                                                        cgGroup,
                                                        cgCamera,
                                                        udtSelectionType,
                                                        laSelectionDataLongs,
                                                        bOptimizePoints,
                                                        cdtCoordinateMode,
                                                        saCoordinateModeData};
        if (bWrap) {
            csShape.ApplyMaterialWrapped(application);
        } else {
            csShape.ApplyMaterial(application);
        }
    });
}

Status Material::sCreateRayTraceCombinedAttributes(std::string& sCombinedAttributes)
{
    return m_editor->Guard()("sCreateRayTraceCombinedAttributes", [&] {
        sCombinedAttributes =
            m_editor->HostParts().raytrace.CombinedAttributes(m_editor->Attributes().RayTrace());
    });
}

Status Material::LoadTextureLibrary(const std::string& stTextureLibraryFilename)
{
    return m_editor->Guard()("LoadTextureLibrary", [&] {
        return StatusOf(m_editor->TextureLibrary().Load(stTextureLibraryFilename));
    });
}

Status Material::LoadMaterialLibrary(const std::string& sMaterialLibraryFileName)
{
    return m_editor->Guard()("LoadMaterialLibrary", [&] {
        return StatusOf(m_editor->MaterialLibrary().Load(sMaterialLibraryFileName));
    });
}

Status Material::pReleaseMaterialLibrarySelection()
{
    return m_editor->Guard()("pReleaseMaterialLibrarySelection",
                             [&] { m_editor->Form().Materials().Browser().ReleaseSelection(); });
}

Status Material::pReleaseTextureLibrarySelection()
{
    return m_editor->Guard()("pReleaseTextureLibrarySelection",
                             [&] { m_editor->Form().Textures().Browser().ReleaseSelection(); });
}

Status Material::CopyFieldToFormMaterial(const CorvexDB::udtMaterial& udtMaterial)
{
    return m_editor->Guard()("CopyFieldToFormMaterial", [&] {
        m_editor->ChangeAtOnce([&] {
            m_editor->Attributes().ShowRecord(udtMaterial);
            m_editor->ShowDifferences({});
        });
    });
}

Status Material::SetBackColor(const std::int32_t& MaterialViewportColor,
                              const std::int32_t& MaterialLibraryColor,
                              const std::int32_t& TextureLibraryColor)
{
    return m_editor->Guard()("SetBackColor", [&] {
        m_editor->Form().SetBackColors(MaterialViewportColor, MaterialLibraryColor,
                                       TextureLibraryColor);
    });
}

Status Material::ResetDevices()
{
    return m_editor->Guard()("ResetDevices", [&] { m_editor->ResetDevices(); });
}

Status Material::ResetMiscellaneous()
{
    return m_editor->Guard()("ResetMiscellaneous", [&] { m_editor->ResetMiscellaneous(); });
}

Status Material::SetSceneDetails(CorvexSG::SceneGraph& CorvexSceneGraph)
{
    return m_editor->Guard()("SetSceneDetails",
                             [&] { m_editor->Preview().SetSceneGraph(CorvexSceneGraph); });
}

Status Material::pAlphaIsTransparentUpdated()
{
    return m_editor->Guard()("pAlphaIsTransparentUpdated",
                             [&] { m_editor->RefreshPreviewMaterial(); });
}

Status Material::GetPluginParameterValues(SingleArray& saPluginParameterValues)
{
    return m_editor->Guard()("GetPluginParameterValues", [&] {
        m_editor->Form().Attributes().Plugins().ReadValues(saPluginParameterValues);
    });
}

Status Material::DisplayPluginParameters(const SingleArray& saParameters)
{
    return m_editor->Guard()("DisplayPluginParameters", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Form().Attributes().Plugins().Display(saParameters); });
    });
}

Status Material::ClearPluginList()
{
    return m_editor->Guard()("ClearPluginList", [&] { m_editor->ClearPlugins(); });
}

Status Material::AddToPluginList(const std::string& Name)
{
    return m_editor->Guard()("AddToPluginList", [&] {
        m_editor->ChangeSilently([&] { m_editor->Form().Attributes().Plugins().Add(Name); });
    });
}

std::shared_ptr<const CorvexSG::GatheredMaterial> Material::ShownMaterial()
{
    std::shared_ptr<const CorvexSG::GatheredMaterial> shown;
    m_editor->Guard()("ShownMaterial", [&] { shown = m_editor->Gatherer().Gather(); });
    return shown;
}

Status Material::LoadSavedLayout()
{
    return m_editor->Guard()("LoadSavedLayout", [&] { m_editor->Layout().Restore(); });
}

Status Material::ShowDifferences(const std::vector<DifferingRow>& rows)
{
    return m_editor->Guard()("ShowDifferences", [&] { m_editor->ShowDifferences(rows); });
}

Status Material::CopyMaterial(const std::vector<Attribute>& attributes)
{
    return m_editor->Guard()("CopyMaterial",
                             [&] { m_editor->Clipboard().Copy(PieceOf(attributes)); });
}

Status Material::PasteMaterial()
{
    return m_editor->Guard()("PasteMaterial",
                             [&] { m_editor->Clipboard().Paste(WholeMaterial()); });
}

QString Material::PastedTitle()
{
    QString title;
    m_editor->Guard()("PastedTitle", [&] {
        const auto pasted = m_editor->Clipboard().Pasted(WholeMaterial());
        title = pasted ? pasted->title : QString();
    });
    return title;
}

Status Material::SetMaterialName(const std::string& name)
{
    return m_editor->Guard()("SetMaterialName", [&] { m_editor->Clipboard().SetName(name); });
}

Status Material::Edit(const std::vector<EditedRow>& rows)
{
    return m_editor->Guard()("Edit", [&] { m_editor->Edit(rows); });
}

void Material::ShowPlacementHandles(bool shown)
{
    m_editor->Form().Attributes().Channels().Textures().Placing().ShowHandles(shown);
}

void Material::DeleteFromLibrary(CorvexEditport::BrowserKind library)
{
    m_editor->Form().Library(library).PressDelete();
}

void Material::ChooseLibrary(CorvexEditport::BrowserKind library)
{
    m_editor->Form().Library(library).PressFunctions();
}

void Material::UpdateCustomFieldNames()
{
    m_editor->Guard()("UpdateCustomFieldNames", [this] { m_editor->FillCustomFields(); });
}

}  // namespace CorvexMaterial
