#include "controls/SectionHeader.h"
#include "material/AdvancedPanel.h"
#include "material/AttributePanel.h"
#include "material/Material.h"
#include "material/MaterialEditor.h"
#include "material/SurfacePanel.h"
#include "textures/ChannelPanel.h"
#include "textures/LibraryPanel.h"
#include "textures/TexturePage.h"
#include "textures/TextureWrap.h"
#include "ui_AdvancedPanel.h"

#include <cmath>

// The published properties: each crosses the border, reads or writes one value.

namespace CorvexMaterial {

namespace {

void CheckFinite(float value, const char* name)
{
    if (!std::isfinite(value)) {
        throw Error(Status::InvalidArgument, std::string(name) + " is not a finite number");
    }
}

void CheckPosition(std::int32_t position, std::size_t size, const char* name)
{
    if (position < 0 || static_cast<std::size_t>(position) >= size) {
        throw Error(Status::InvalidArgument,
                    std::string(name) + " has no value " + std::to_string(position));
    }
}

}  // namespace

TexturePage& Material::Textures()
{
    return m_editor->Form().Attributes().Channels().Textures();
}

Status Material::get_bMaterialPanel(bool& bMaterialPanel)
{
    return m_editor->Guard()(
        "bMaterialPanel", [&] { bMaterialPanel = m_editor->Form().MaterialHeader().isChecked(); });
}

Status Material::put_bMaterialPanel(const bool& bMaterialPanel)
{
    return m_editor->Guard()("bMaterialPanel",
                             [&] { m_editor->Form().MaterialHeader().setChecked(bMaterialPanel); });
}

Status Material::get_bTexturePanel(bool& bTexturePanel)
{
    return m_editor->Guard()("bTexturePanel",
                             [&] { bTexturePanel = m_editor->Form().Textures().IsExpanded(); });
}

Status Material::put_bTexturePanel(const bool& bTexturePanel)
{
    return m_editor->Guard()("bTexturePanel", [&] { m_editor->SetTexturePanel(bTexturePanel); });
}

Status Material::get_bMaterialLibraryPanel(bool& bMaterialLibraryPanel)
{
    return m_editor->Guard()("bMaterialLibraryPanel", [&] {
        bMaterialLibraryPanel = m_editor->Form().Materials().IsExpanded();
    });
}

Status Material::put_bMaterialLibraryPanel(const bool& bMaterialLibraryPanel)
{
    return m_editor->Guard()("bMaterialLibraryPanel",
                             [&] { m_editor->SetMaterialLibraryPanel(bMaterialLibraryPanel); });
}

Status Material::get_lVBColor(std::int32_t& lVBColor)
{
    return m_editor->Guard()(
        "lVBColor", [&] { lVBColor = m_editor->Form().Attributes().Surface().Color().Value(); });
}

Status Material::put_lVBColor(const std::int32_t& lVBColor)
{
    return m_editor->Guard()("lVBColor", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Form().Attributes().Surface().Color().Show(lVBColor); });
    });
}

Status Material::get_lPreviewPrimitive(std::int32_t& lPreviewPrimitive)
{
    return m_editor->Guard()("lPreviewPrimitive", [&] {
        lPreviewPrimitive = m_editor->Attributes().PreviewPrimitive();
    });
}

Status Material::put_lPreviewPrimitive(const std::int32_t& lPreviewPrimitive)
{
    return m_editor->Guard()("lPreviewPrimitive",
                             [&] { m_editor->SetPreviewPrimitive(lPreviewPrimitive); });
}

Status Material::get_TextureFileName(std::string& TextureFileName)
{
    return m_editor->Guard()("TextureFileName",
                             [&] { TextureFileName = Textures().File(TextureLayer::Primary); });
}

Status Material::put_TextureFileName(const std::string& TextureFileName)
{
    return m_editor->Guard()("TextureFileName", [&] {
        m_editor->ChangeAtOnce([&] { Textures().SetFile(TextureLayer::Primary, TextureFileName); });
    });
}

Status Material::get_TextureOverlayFileName(std::string& TextureOverlayFileName)
{
    return m_editor->Guard()("TextureOverlayFileName", [&] {
        TextureOverlayFileName = Textures().File(TextureLayer::Overlay);
    });
}

Status Material::put_TextureOverlayFileName(const std::string& TextureOverlayFileName)
{
    return m_editor->Guard()("TextureOverlayFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { Textures().SetFile(TextureLayer::Overlay, TextureOverlayFileName); });
    });
}

Status Material::get_TextureBumpmapFileName(std::string& TextureBumpmapFileName)
{
    return m_editor->Guard()("TextureBumpmapFileName",
                             [&] { TextureBumpmapFileName = Textures().File(TextureLayer::Bump); });
}

Status Material::put_TextureBumpmapFileName(const std::string& TextureBumpmapFileName)
{
    return m_editor->Guard()("TextureBumpmapFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { Textures().SetFile(TextureLayer::Bump, TextureBumpmapFileName); });
    });
}

Status Material::get_TextureSpecularMapFileName(std::string& TextureSpecularMapFileName)
{
    return m_editor->Guard()("TextureSpecularMapFileName", [&] {
        TextureSpecularMapFileName = Textures().File(TextureLayer::Specular);
    });
}

Status Material::put_TextureSpecularMapFileName(const std::string& TextureSpecularMapFileName)
{
    return m_editor->Guard()("TextureSpecularMapFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { Textures().SetFile(TextureLayer::Specular, TextureSpecularMapFileName); });
    });
}

Status Material::get_TextureEnvironmentMapFileName(std::string& TextureEnvironmentMapFileName)
{
    return m_editor->Guard()("TextureEnvironmentMapFileName", [&] {
        TextureEnvironmentMapFileName = Textures().File(TextureLayer::Environment);
    });
}

Status Material::put_TextureEnvironmentMapFileName(const std::string& TextureEnvironmentMapFileName)
{
    return m_editor->Guard()("TextureEnvironmentMapFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { Textures().SetFile(TextureLayer::Environment, TextureEnvironmentMapFileName); });
    });
}

Status Material::get_TextureAlphaFileName(std::string& TextureAlphaFileName)
{
    return m_editor->Guard()("TextureAlphaFileName",
                             [&] { TextureAlphaFileName = Textures().File(TextureLayer::Alpha); });
}

Status Material::put_TextureAlphaFileName(const std::string& TextureAlphaFileName)
{
    return m_editor->Guard()("TextureAlphaFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { Textures().SetFile(TextureLayer::Alpha, TextureAlphaFileName); });
    });
}

Status Material::get_FlatWrapType(CorvexDB::FlatWrapType& FlatWrapType)
{
    return m_editor->Guard()("FlatWrapType", [&] { FlatWrapType = Textures().FlatWrap(); });
}

Status Material::put_FlatWrapType(const CorvexDB::FlatWrapType& FlatWrapType)
{
    return m_editor->Guard()("FlatWrapType", [&] {
        CheckPosition(static_cast<std::int32_t>(FlatWrapType), kFlatWrapTitles.size(),
                      "FlatWrapType");
        m_editor->ChangeAtOnce([&] { Textures().SetFlatWrap(FlatWrapType); });
    });
}

Status Material::get_TextureTilesPerUnit(float& TextureTilesPerUnit)
{
    return m_editor->Guard()("TextureTilesPerUnit",
                             [&] { TextureTilesPerUnit = Textures().TilesPerUnit(); });
}

Status Material::put_TextureTilesPerUnit(const float& TextureTilesPerUnit)
{
    return m_editor->Guard()("TextureTilesPerUnit", [&] {
        CheckFinite(TextureTilesPerUnit, "TextureTilesPerUnit");
        m_editor->ChangeAtOnce([&] { Textures().SetTilesPerUnit(TextureTilesPerUnit); });
    });
}

Status Material::get_TextureOriginU(float& TextureOriginU)
{
    return m_editor->Guard()("TextureOriginU",
                             [&] { TextureOriginU = Textures().Placement().originU; });
}

Status Material::put_TextureOriginU(const float& TextureOriginU)
{
    return m_editor->Guard()("TextureOriginU", [&] {
        CheckFinite(TextureOriginU, "TextureOriginU");
        CorvexDB::TexturePlacement placement = Textures().Placement();
        placement.originU = TextureOriginU;
        m_editor->ChangeAtOnce([&] { Textures().SetPlacement(placement); });
    });
}

Status Material::get_TextureOriginV(float& TextureOriginV)
{
    return m_editor->Guard()("TextureOriginV",
                             [&] { TextureOriginV = Textures().Placement().originV; });
}

Status Material::put_TextureOriginV(const float& TextureOriginV)
{
    return m_editor->Guard()("TextureOriginV", [&] {
        CheckFinite(TextureOriginV, "TextureOriginV");
        CorvexDB::TexturePlacement placement = Textures().Placement();
        placement.originV = TextureOriginV;
        m_editor->ChangeAtOnce([&] { Textures().SetPlacement(placement); });
    });
}

Status Material::get_TextureScaleU(float& TextureScaleU)
{
    return m_editor->Guard()("TextureScaleU",
                             [&] { TextureScaleU = Textures().Placement().scaleU; });
}

Status Material::put_TextureScaleU(const float& TextureScaleU)
{
    return m_editor->Guard()("TextureScaleU", [&] {
        CheckFinite(TextureScaleU, "TextureScaleU");
        CorvexDB::TexturePlacement placement = Textures().Placement();
        placement.scaleU = TextureScaleU;
        m_editor->ChangeAtOnce([&] { Textures().SetPlacement(placement); });
    });
}

Status Material::get_TextureScaleV(float& TextureScaleV)
{
    return m_editor->Guard()("TextureScaleV",
                             [&] { TextureScaleV = Textures().Placement().scaleV; });
}

Status Material::put_TextureScaleV(const float& TextureScaleV)
{
    return m_editor->Guard()("TextureScaleV", [&] {
        CheckFinite(TextureScaleV, "TextureScaleV");
        CorvexDB::TexturePlacement placement = Textures().Placement();
        placement.scaleV = TextureScaleV;
        m_editor->ChangeAtOnce([&] { Textures().SetPlacement(placement); });
    });
}

Status Material::get_WrapType(CorvexDB::WrapType& WrapType)
{
    return m_editor->Guard()("WrapType", [&] { WrapType = Textures().Wrap(); });
}

Status Material::put_WrapType(const CorvexDB::WrapType& WrapType)
{
    return m_editor->Guard()("WrapType", [&] {
        CheckPosition(static_cast<std::int32_t>(WrapType), kWrapTitles.size(), "WrapType");
        m_editor->ChangeAtOnce([&] { Textures().SetWrap(WrapType); });
    });
}

Status Material::get_MaterialWrapOrientationU(float& MaterialWrapOrientationU)
{
    return m_editor->Guard()("MaterialWrapOrientationU",
                             [&] { MaterialWrapOrientationU = Textures().FlipU() ? 1.0F : 0.0F; });
}

Status Material::get_MaterialWrapOrientationV(float& MaterialWrapOrientationV)
{
    return m_editor->Guard()("MaterialWrapOrientationV",
                             [&] { MaterialWrapOrientationV = Textures().FlipV() ? 1.0F : 0.0F; });
}

Status Material::get_MaterialDoubleSided(bool& MaterialDoubleSided)
{
    return m_editor->Guard()("MaterialDoubleSided", [&] {
        MaterialDoubleSided =
            m_editor->Form().Attributes().Advanced().Form().chkDoubleSided->isChecked();
    });
}

Status Material::get_MaterialAlphaTest(std::int32_t& MaterialAlphaTest)
{
    return m_editor->Guard()("MaterialAlphaTest", [&] {
        MaterialAlphaTest =
            m_editor->Form().Attributes().Advanced().Form().cboAlphaTest->currentIndex();
    });
}

Status Material::get_MaterialAlphaTestReference(std::int32_t& MaterialAlphaTestReference)
{
    return m_editor->Guard()("MaterialAlphaTestReference", [&] {
        MaterialAlphaTestReference = m_editor->Attributes().Amount(Attribute::AlphaTestReference);
    });
}

Status Material::get_ApplyRelative(CorvexDB::ApplyMode& ApplyRelative)
{
    return m_editor->Guard()("ApplyRelative",
                             [&] { ApplyRelative = m_editor->Attributes().ApplyRelative(); });
}

Status Material::put_ApplyRelative(const CorvexDB::ApplyMode& ApplyRelative)
{
    return m_editor->Guard()("ApplyRelative", [&] {
        m_editor->ChangeAtOnce([&] { m_editor->Attributes().ShowApplyRelative(ApplyRelative); });
    });
}

Status Material::get_stTextureLibraryFilename(std::string& stTextureLibraryFilename)
{
    return m_editor->Guard()("stTextureLibraryFilename", [&] {
        stTextureLibraryFilename = m_editor->Attributes().TextureLibrary();
    });
}

Status Material::put_stTextureLibraryFilename(const std::string& stTextureLibraryFilename)
{
    return LoadTextureLibrary(stTextureLibraryFilename);
}

Status Material::get_colTextures(CorvexDB::TextureCollection*& colTextures)
{
    return m_editor->Guard()(
        "colTextures", [&] { colTextures = &m_editor->HostParts().textureLibrary.Textures(); });
}

Status Material::put_lRaytraceType(const std::int32_t& lRaytraceType)
{
    return m_editor->Guard()("lRaytraceType", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().RayTrace().MaterialType = lRaytraceType; });
    });
}

Status Material::put_lRaytracePredefinedType(const std::int32_t& lRaytracePredefinedType)
{
    return m_editor->Guard()("lRaytracePredefinedType", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().RayTrace().PredefinedType = lRaytracePredefinedType; });
    });
}

Status Material::put_lRaytraceColorPatternType(const std::int32_t& lRaytraceColorPatternType)
{
    return m_editor->Guard()("lRaytraceColorPatternType", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().RayTrace().ColorPattern = lRaytraceColorPatternType; });
    });
}

Status Material::get_csMaterialShape(CorvexSG::Shape*& csMaterialShape)
{
    return m_editor->Guard()("csMaterialShape",
                             [&] { csMaterialShape = m_editor->Preview().Shape().get(); });
}

Status Material::get_Enabled(bool& Enabled)
{
    return m_editor->Guard()("Enabled", [&] { Enabled = m_editor->Form().Picture().isEnabled(); });
}

Status Material::put_Enabled(const bool& Enabled)
{
    return m_editor->Guard()("Enabled", [&] { m_editor->Form().Picture().setEnabled(Enabled); });
}

Status Material::get_hwnd(WId& hwnd)
{
    return m_editor->Guard()("hwnd", [&] { hwnd = winId(); });
}

Status Material::SetTexturesAvoidStateChange(const std::string& stTextureFileName,
                                             const std::string& stTextureAlphaFileName,
                                             const std::string& stTextureOverlayFileName,
                                             const std::string& stTextureBumpMapFileName,
                                             const std::string& stTextureSpecularMapFileName,
                                             const std::string& stTextureEnvironmentMapFileName)
{
    return m_editor->Guard()("SetTexturesAvoidStateChange", [&] {
        const CorvexDB::TextureFiles files{stTextureFileName,
                                           stTextureOverlayFileName,
                                           stTextureAlphaFileName,
                                           stTextureBumpMapFileName,
                                           stTextureSpecularMapFileName,
                                           stTextureEnvironmentMapFileName};
        m_editor->ChangeSilently([&] {
            for (const TextureLayerRow& row : kTextureLayers) {
                Textures().SetFile(row.layer, files.*row.file);
            }
        });
    });
}

Status Material::SetTextureCropping(const float& stTextureOriginU, const float& stTextureOriginV,
                                    const float& stTextureScaleU, const float& stTextureScaleV)
{
    return m_editor->Guard()("SetTextureCropping", [&] {
        CheckFinite(stTextureOriginU, "stTextureOriginU");
        CheckFinite(stTextureOriginV, "stTextureOriginV");
        CheckFinite(stTextureScaleU, "stTextureScaleU");
        CheckFinite(stTextureScaleV, "stTextureScaleV");
        m_editor->ChangeAtOnce([&] {
            Textures().SetPlacement(
                {stTextureOriginU, stTextureOriginV, stTextureScaleU, stTextureScaleV});
        });
    });
}

}  // namespace CorvexMaterial
