#pragma once

#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/CorvexSG.h>
#include <CorvexMaterial/Status.h>

#include <QIcon>
#include <QtGui/qwindowdefs.h>

#include <cstdint>
#include <string>
#include <vector>

namespace CorvexMaterial {

/// Names under which the control's interface and its events are published.
inline constexpr const char* kInterfaceName = "_Material";
inline constexpr const char* kEventsName = "__Material";

using SingleArray = std::vector<float>;
using LongArray = std::vector<std::int32_t>;

/// The control as its host drives it: 57 members in published order. Each returns a status, hands
/// results over through its argument, lets no exception out, and changes nothing when it fails
/// unless it says otherwise: a value that was accepted stays although its preview could not be
/// drawn. Call it on the user-interface thread only.
///
/// Writing an attribute shows the value in its editing control and refreshes the preview, which
/// ends in one `MaterialChanged`; the panel flags, `Enabled` and the libraries refresh nothing.
///
/// Besides the errors that a member names, any member that asks the host or draws gives what the
/// host threw: an `Error`'s own status, else Failed.
class IMaterial {
public:
    virtual ~IMaterial() = default;

    /// Ten elements; those beyond the plug-in's parameters are 0. A plug-in with more than ten
    /// fills the ten and gives SubscriptOutOfRange; text that is no number ConversionFailed.
    virtual Status GetPluginParameterValues(SingleArray& saPluginParameterValues) = 0;
    /// The picture of the button that raytraces the preview.
    virtual Status SetRaytraceButtonImage(const QIcon& Image) = 0;
    /// Every attribute to its factory value; libraries and panels stay.
    virtual Status DefaultMaterial() = 0;
    /// Reads the saved state, loads the two libraries when the host keeps any, brings the saved
    /// layout and the background colours back, and refreshes once. Texts that do not convert leave
    /// their attribute at its factory value. A missing library is told in a message box; one that
    /// cannot be opened gives its status, after all the rest was loaded.
    virtual Status LoadSavedStatus() = 0;
    /// Height in twips, 15 to a logical pixel. Expands all panels and shares the height between the
    /// two libraries.
    virtual Status SetMaxStatus(const std::int32_t& lAvailableSpace) = 0;
    /// Writes the layout.
    virtual Status SaveStatus() = 0;
    /// Redraws the preview and the visible library browsers.
    virtual Status RenderMaterial() = 0;
    /// Sets the six paths without a refresh and without `MaterialChanged`.
    virtual Status SetTexturesAvoidStateChange(
        const std::string& stTextureFileName, const std::string& stTextureAlphaFileName,
        const std::string& stTextureOverlayFileName, const std::string& stTextureBumpMapFileName,
        const std::string& stTextureSpecularMapFileName,
        const std::string& stTextureEnvironmentMapFileName) = 0;
    /// Loads the preview meshes (once) and draws the first preview. A mesh that cannot be read
    /// stops the loading and gives FileFailed; the earlier ones stay.
    virtual Status InitializeMaterialPreviewScene() = 0;
    /// Applies the material to one shape with one call of the shape's material operation,
    /// `ApplyMaterialWrapped` if bWrap asks for new texture coordinates, else `ApplyMaterial`;
    /// raises no event. Group and camera may be null. Cheap for many shapes: the material is
    /// gathered once per change and shared between the calls.
    virtual Status ApplyShapeMaterial(CorvexSG::Scene& oScene, CorvexSG::Shape& csShape,
                                      const bool& bWrap, CorvexSG::Group* cgGroup,
                                      CorvexSG::Group* cgCamera,
                                      const CorvexSG::udtSelectionType& udtSelectionType,
                                      const LongArray& laSelectionDataLongs,
                                      const bool& bOptimizePoints,
                                      const CorvexSG::cdtCoordinateMode& cdtCoordinateMode,
                                      const SingleArray& saCoordinateModeData) = 0;
    /// Fractions of the image, usually 0 to 1; a negative scale mirrors. Errors: InvalidArgument
    /// for what is no finite number.
    virtual Status SetTextureCropping(const float& stTextureOriginU, const float& stTextureOriginV,
                                      const float& stTextureScaleU,
                                      const float& stTextureScaleV) = 0;
    /// The host's text for the current raytrace attributes, unchanged.
    virtual Status sCreateRayTraceCombinedAttributes(std::string& sCombinedAttributes) = 0;
    /// Opens and shows a library. A bare name is looked for in the host's library folder. A missing
    /// file is told in a message box and gives FileFailed, and its name stays; the panel is empty
    /// then, as it is after an error of the host.
    virtual Status LoadTextureLibrary(const std::string& stTextureLibraryFilename) = 0;
    virtual Status LoadMaterialLibrary(const std::string& sMaterialLibraryFileName) = 0;

    /// Whether the panel is expanded.
    virtual Status get_bMaterialPanel(bool& bMaterialPanel) = 0;
    virtual Status put_bMaterialPanel(const bool& bMaterialPanel) = 0;
    virtual Status get_bTexturePanel(bool& bTexturePanel) = 0;
    virtual Status put_bTexturePanel(const bool& bTexturePanel) = 0;
    virtual Status get_bMaterialLibraryPanel(bool& bMaterialLibraryPanel) = 0;
    virtual Status put_bMaterialLibraryPanel(const bool& bMaterialLibraryPanel) = 0;

    /// red + green * 256 + blue * 65536.
    virtual Status get_lVBColor(std::int32_t& lVBColor) = 0;
    virtual Status put_lVBColor(const std::int32_t& lVBColor) = 0;
    /// 0 cube, 1 cylinder, 2 sphere, 3 torus, 4 cone; any other value an empty shape.
    virtual Status get_lPreviewPrimitive(std::int32_t& lPreviewPrimitive) = 0;
    virtual Status put_lPreviewPrimitive(const std::int32_t& lPreviewPrimitive) = 0;

    /// Paths, empty = unused.
    virtual Status get_TextureFileName(std::string& TextureFileName) = 0;
    virtual Status put_TextureFileName(const std::string& TextureFileName) = 0;
    virtual Status get_TextureOverlayFileName(std::string& TextureOverlayFileName) = 0;
    virtual Status put_TextureOverlayFileName(const std::string& TextureOverlayFileName) = 0;
    virtual Status get_TextureBumpmapFileName(std::string& TextureBumpmapFileName) = 0;
    virtual Status put_TextureBumpmapFileName(const std::string& TextureBumpmapFileName) = 0;
    virtual Status get_TextureSpecularMapFileName(std::string& TextureSpecularMapFileName) = 0;
    virtual Status
    put_TextureSpecularMapFileName(const std::string& TextureSpecularMapFileName) = 0;
    virtual Status
    get_TextureEnvironmentMapFileName(std::string& TextureEnvironmentMapFileName) = 0;
    virtual Status
    put_TextureEnvironmentMapFileName(const std::string& TextureEnvironmentMapFileName) = 0;
    virtual Status get_TextureAlphaFileName(std::string& TextureAlphaFileName) = 0;
    virtual Status put_TextureAlphaFileName(const std::string& TextureAlphaFileName) = 0;

    /// Errors: InvalidArgument for an unknown value.
    virtual Status get_FlatWrapType(CorvexDB::FlatWrapType& FlatWrapType) = 0;
    virtual Status put_FlatWrapType(const CorvexDB::FlatWrapType& FlatWrapType) = 0;
    /// Images per unit of the shape's coordinates. Errors: InvalidArgument for what is no finite
    /// number, for the origin and the scale too.
    virtual Status get_TextureTilesPerUnit(float& TextureTilesPerUnit) = 0;
    virtual Status put_TextureTilesPerUnit(const float& TextureTilesPerUnit) = 0;
    /// Origin and scale are fractions of the image, from its left and top; not clamped.
    virtual Status get_TextureOriginU(float& TextureOriginU) = 0;
    virtual Status put_TextureOriginU(const float& TextureOriginU) = 0;
    virtual Status get_TextureOriginV(float& TextureOriginV) = 0;
    virtual Status put_TextureOriginV(const float& TextureOriginV) = 0;
    virtual Status get_TextureScaleU(float& TextureScaleU) = 0;
    virtual Status put_TextureScaleU(const float& TextureScaleU) = 0;
    virtual Status get_TextureScaleV(float& TextureScaleV) = 0;
    virtual Status put_TextureScaleV(const float& TextureScaleV) = 0;
    /// Errors: InvalidArgument for an unknown value.
    virtual Status get_WrapType(CorvexDB::WrapType& WrapType) = 0;
    virtual Status put_WrapType(const CorvexDB::WrapType& WrapType) = 0;

    /// 1 when flipped, else 0.
    virtual Status get_MaterialWrapOrientationU(float& MaterialWrapOrientationU) = 0;
    virtual Status get_MaterialWrapOrientationV(float& MaterialWrapOrientationV) = 0;
    virtual Status get_MaterialDoubleSided(bool& MaterialDoubleSided) = 0;
    /// Position in the alpha-test list, 0 to 7.
    virtual Status get_MaterialAlphaTest(std::int32_t& MaterialAlphaTest) = 0;
    virtual Status get_MaterialAlphaTestReference(std::int32_t& MaterialAlphaTestReference) = 0;
    /// Errors: InvalidArgument for an unknown value.
    virtual Status get_ApplyRelative(CorvexDB::ApplyMode& ApplyRelative) = 0;
    virtual Status put_ApplyRelative(const CorvexDB::ApplyMode& ApplyRelative) = 0;

    /// The open texture library, as it was named.
    virtual Status get_stTextureLibraryFilename(std::string& stTextureLibraryFilename) = 0;
    virtual Status put_stTextureLibraryFilename(const std::string& stTextureLibraryFilename) = 0;
    /// Of the open library; lives as long as the host's library object.
    virtual Status get_colTextures(CorvexDB::TextureCollection*& colTextures) = 0;

    /// Positions in the lists of the extended dialog: 0 custom or 1 predefined; 0 glass, 1 metal,
    /// 2 stone, 3 wood or 4 miscellaneous; 0 none or 1 to 23 in the order shown there. Any other
    /// type is kept and counts as custom. Errors: InvalidArgument beyond the other two lists.
    virtual Status put_lRaytraceType(const std::int32_t& lRaytraceType) = 0;
    virtual Status put_lRaytracePredefinedType(const std::int32_t& lRaytracePredefinedType) = 0;
    virtual Status put_lRaytraceColorPatternType(const std::int32_t& lRaytraceColorPatternType) = 0;

    /// The shape that carries the preview material; null before the preview scene is built. The
    /// control owns it: another primitive makes it another shape.
    virtual Status get_csMaterialShape(CorvexSG::Shape*& csMaterialShape) = 0;
    /// One value per parameter of the selected plug-in, in parameter order. Errors:
    /// SubscriptOutOfRange for fewer values than parameters and, with ten shown, for more than ten
    /// parameters; InvalidArgument for what is no finite number.
    virtual Status DisplayPluginParameters(const SingleArray& saParameters) = 0;
    /// Nothing is selected in the library's browser any more.
    virtual Status pReleaseMaterialLibrarySelection() = 0;
    virtual Status pReleaseTextureLibrarySelection() = 0;
    /// Shows a material in the panel; ends in one refresh. The overlay's translucency is rounded to
    /// a whole percentage; raytrace positions that no list has are kept, and so are name and values
    /// of a plug-in that is not listed. Errors: InvalidArgument
    /// for any other position that does not exist or a number that is not finite, Overflow for a
    /// translucency beyond 32 bits.
    virtual Status CopyFieldToFormMaterial(const CorvexDB::udtMaterial& udtMaterial) = 0;
    /// Backgrounds of the preview and the two browsers, as `lVBColor`; kept until the next call or
    /// `LoadSavedStatus`, never saved.
    virtual Status SetBackColor(const std::int32_t& MaterialViewportColor,
                                const std::int32_t& MaterialLibraryColor,
                                const std::int32_t& TextureLibraryColor) = 0;
    /// Leaves the one entry "None", selected.
    virtual Status ClearPluginList() = 0;
    /// Entry n of the list is element n of the host's plug-in table.
    virtual Status AddToPluginList(const std::string& Name) = 0;
    /// Rebuilds what depends on the graphics device; reads no mesh file again.
    virtual Status ResetDevices() = 0;
    /// Colour and the four amounts to their factory values.
    virtual Status ResetMiscellaneous() = 0;
    /// The whole panel; enabling it gives every part its own earlier state back. It is the panel's
    /// own state, whatever that of the window around it.
    virtual Status get_Enabled(bool& Enabled) = 0;
    virtual Status put_Enabled(const bool& Enabled) = 0;
    /// The scene graph outlives the control.
    virtual Status SetSceneDetails(CorvexSG::SceneGraph& CorvexSceneGraph) = 0;
    /// The window handle; asking for it makes the control a native window.
    virtual Status get_hwnd(WId& hwnd) = 0;
    /// The textures' alpha handling changed in the host.
    virtual Status pAlphaIsTransparentUpdated() = 0;
};

}  // namespace CorvexMaterial
