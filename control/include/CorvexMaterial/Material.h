#pragma once

#include <CorvexMaterial/CorvexEditport.h>
#include <CorvexMaterial/CorvexSG.h>
#include <CorvexMaterial/Export.h>
#include <CorvexMaterial/Host.h>
#include <CorvexMaterial/MaterialEdit.h>
#include <CorvexMaterial/Platform.h>
#include <CorvexMaterial/TextureMembers.h>

#include <QWidget>

#include <memory>
#include <vector>

namespace CorvexMaterial {

/// The material editor: one widget that edits one material. Host and platform outlive it. It calls
/// the host on the user-interface thread only, and writes its state to the settings store when it
/// is destroyed.
///
/// The constructor asks the host for a viewport and two browsers and lets out what it throws then.
/// A slot of `MaterialChanged` that writes an attribute is answered by another `MaterialChanged`.
///
/// For a host's help its groups of controls and its dialogs have the dynamic property `helpTopic`:
/// surface, textures, placement, advanced, custom-fields, plugins, preview, raytrace-attributes,
/// libraries. What has the keyboard belongs to the nearest one around it.
class CORVEX_EXPORT Material : public QWidget, public TextureMembers {
    Q_OBJECT

public:
    Material(Host& host, Platform& platform, QWidget* parent);
    ~Material() override;

    Status GetPluginParameterValues(SingleArray& saPluginParameterValues) override;
    Status SetRaytraceButtonImage(const QIcon& Image) override;
    Status DefaultMaterial() override;
    Status LoadSavedStatus() override;
    Status SetMaxStatus(const std::int32_t& lAvailableSpace) override;
    Status SaveStatus() override;
    Status RenderMaterial() override;
    Status InitializeMaterialPreviewScene() override;
    Status ApplyShapeMaterial(CorvexSG::Scene& oScene, CorvexSG::Shape& csShape, const bool& bWrap,
                              CorvexSG::Group* cgGroup, CorvexSG::Group* cgCamera,
                              const CorvexSG::udtSelectionType& udtSelectionType,
                              const LongArray& laSelectionDataLongs, const bool& bOptimizePoints,
                              const CorvexSG::cdtCoordinateMode& cdtCoordinateMode,
                              const SingleArray& saCoordinateModeData) override;
    Status sCreateRayTraceCombinedAttributes(std::string& sCombinedAttributes) override;
    Status LoadTextureLibrary(const std::string& stTextureLibraryFilename) override;
    Status LoadMaterialLibrary(const std::string& sMaterialLibraryFileName) override;

    Status get_bMaterialPanel(bool& bMaterialPanel) override;
    Status put_bMaterialPanel(const bool& bMaterialPanel) override;
    Status get_bTexturePanel(bool& bTexturePanel) override;
    Status put_bTexturePanel(const bool& bTexturePanel) override;
    Status get_bMaterialLibraryPanel(bool& bMaterialLibraryPanel) override;
    Status put_bMaterialLibraryPanel(const bool& bMaterialLibraryPanel) override;
    Status get_lVBColor(std::int32_t& lVBColor) override;
    Status put_lVBColor(const std::int32_t& lVBColor) override;
    Status get_lPreviewPrimitive(std::int32_t& lPreviewPrimitive) override;
    Status put_lPreviewPrimitive(const std::int32_t& lPreviewPrimitive) override;
    Status get_MaterialDoubleSided(bool& MaterialDoubleSided) override;
    Status get_MaterialAlphaTest(std::int32_t& MaterialAlphaTest) override;
    Status get_MaterialAlphaTestReference(std::int32_t& MaterialAlphaTestReference) override;
    Status get_ApplyRelative(CorvexDB::ApplyMode& ApplyRelative) override;
    Status put_ApplyRelative(const CorvexDB::ApplyMode& ApplyRelative) override;
    Status get_stTextureLibraryFilename(std::string& stTextureLibraryFilename) override;
    Status put_stTextureLibraryFilename(const std::string& stTextureLibraryFilename) override;
    Status get_colTextures(CorvexDB::TextureCollection*& colTextures) override;
    Status put_lRaytraceType(const std::int32_t& lRaytraceType) override;
    Status put_lRaytracePredefinedType(const std::int32_t& lRaytracePredefinedType) override;
    Status put_lRaytraceColorPatternType(const std::int32_t& lRaytraceColorPatternType) override;
    Status get_csMaterialShape(CorvexSG::Shape*& csMaterialShape) override;
    Status DisplayPluginParameters(const SingleArray& saParameters) override;
    Status pReleaseMaterialLibrarySelection() override;
    Status pReleaseTextureLibrarySelection() override;
    Status CopyFieldToFormMaterial(const CorvexDB::udtMaterial& udtMaterial) override;
    Status SetBackColor(const std::int32_t& MaterialViewportColor,
                        const std::int32_t& MaterialLibraryColor,
                        const std::int32_t& TextureLibraryColor) override;
    Status ClearPluginList() override;
    Status AddToPluginList(const std::string& Name) override;
    Status ResetDevices() override;
    Status ResetMiscellaneous() override;
    Status get_Enabled(bool& Enabled) override;
    Status put_Enabled(const bool& Enabled) override;
    Status SetSceneDetails(CorvexSG::SceneGraph& CorvexSceneGraph) override;
    Status get_hwnd(WId& hwnd) override;
    Status pAlphaIsTransparentUpdated() override;

    // Beside the published interface.

    /// What the panel shows, as `ApplyShapeMaterial` hands it to shapes. Null, and the user has
    /// been told, when the host fails in what it is asked for meanwhile.
    [[nodiscard]] std::shared_ptr<const CorvexSG::GatheredMaterial> ShownMaterial();
    /// The layout of the panels and their background colours alone, as `SaveStatus` left them and
    /// `LoadSavedStatus` reads them with everything else. Gives the layout back to the user after
    /// `SetMaxStatus`.
    Status LoadSavedLayout();
    /// For a host whose edits go to several shapes: the attributes in which they differ from each
    /// other, each row once. Their controls say so, painted over what they show; texts and values
    /// stay, and no signal is raised. A text box, list or slider that has the keyboard shows its
    /// own. An edit of an attribute takes its mark away, the next call all others, and so does
    /// `CopyFieldToFormMaterial`. What no control shows is left out.
    Status ShowDifferences(const std::vector<DifferingRow>& rows);

    /// Puts what the panel shows on the clipboard, for this panel or that of another program: these
    /// attributes, the whole material where there are none. Other programs get it as JSON text, a
    /// single value as text.
    Status CopyMaterial(const std::vector<Attribute>& attributes = {});
    /// Takes what of a material is on the clipboard as one edit of the user; where that is nothing,
    /// `DisplayMiscInformation` says why. The context menus of the panel do the same for every
    /// field and group.
    Status PasteMaterial();
    /// What `PasteMaterial` would change, for a menu: "Material", "Surface"; empty for nothing.
    [[nodiscard]] QString PastedTitle();
    /// What the host calls the material that the panel shows, empty for nothing; a copy of the
    /// whole takes it along (`MaterialEdit::name`).
    Status SetMaterialName(const std::string& name);
    /// As if the user had given the attributes these values, all of them in one edit. Errors:
    /// InvalidArgument, Failed; nothing has changed then.
    Status Edit(const std::vector<EditedRow>& rows);

public Q_SLOTS:
    /// For a host that is about to select other shapes, or to change those that are selected:
    /// ends a dialog that is open beside the panel, as its OK does where something was tried in it,
    /// which is an edit of the shapes selected still.
    void EndPreview();
    /// As if the user had pressed the button of the library's panel that deletes the selected
    /// entry, or the one that chooses or creates a library. Nothing happens where the button is
    /// disabled.
    void DeleteFromLibrary(CorvexEditport::BrowserKind library);
    void ChooseLibrary(CorvexEditport::BrowserKind library);
    /// The host's names of the custom fields have changed: asks for them again. The control does so
    /// by itself at its start and when a page is turned.
    void UpdateCustomFieldNames();
    /// Presses or releases the button "Placement" of the texture page, which asks the host for
    /// handles in its view. Raises nothing.
    void ShowPlacementHandles(bool shown);

Q_SIGNALS:
    void TextureLibraryExpanded();
    void MaterialLibraryExpanded();
    /// At the end of every refresh of the preview material.
    void MaterialChanged();
    void DisplayPositionInformation(const QString& PositionInformation);
    void DisplayMiscInformation(const QString& MiscInformation);
    /// A warning that the user may silence; the host shows it and keeps the choice.
    void evtReqWarn(const QString& ApplicationRegistryKey, const QString& Warning,
                    const QString& WarningRegistryEntry);

    /// The user wants handles in the host's view that move, scale and turn the projection of the
    /// texture, or has had enough of them.
    void PlacementHandlesToggled(bool shown);

    /// The user has edited the material: once per edit, right before the `MaterialChanged` that
    /// ends it. The preview shape has the material by then, and `ApplyShapeMaterial` gives it to
    /// others. What tells a host more than comparing materials: a value is an edit for the other
    /// shapes of a selection also when the panel showed it before.
    ///
    /// Every control of the panel is told, its resets and defaults, the extended raytrace dialog
    /// and what is chosen in the libraries. A change by the host is none: what it writes through
    /// `IMaterial` or shows with `CopyFieldToFormMaterial`, it knows. Nor are the preview, its
    /// primitive and the choice of libraries, which are the panel's own; those end in a
    /// `MaterialChanged` alone.
    ///
    /// Where the host refuses to show an edit (its shape or viewport throws) neither signal is
    /// raised; the rows come with those of the next edit, unless the host has changed the panel
    /// before.
    void Edited(const CorvexMaterial::MaterialEdit& edit);

    /// The user looks at what an edit would do that he has not made: in the colour dialog, in that
    /// of the crop or of the flat wrap, which stay open beside the work. The preview shape shows
    /// it; a host that wants to shows it on its shapes, without a trace in what it keeps. The panel
    /// has its values still, and so has `ApplyShapeMaterial`. Once per change, each in the place of
    /// the one before.
    void Previewed(const CorvexMaterial::MaterialEdit& edit);
    /// What was shown so is to be seen no more: the dialog was cancelled, or `Edited` and
    /// `MaterialChanged` follow at once. A host that writes an attribute or shows a material
    /// meanwhile cancels the dialog.
    void PreviewEnded();
};

}  // namespace CorvexMaterial
