#include "material/AttributePanel.h"
#include "material/LibraryPanel.h"
#include "material/Material.h"
#include "material/MaterialEditor.h"
#include "controls/SectionHeader.h"
#include "platform/NumberText.h"
#include "textures/TextureLayers.h"
#include "ui_AttributePanel.h"

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

void CheckPosition(std::int32_t position, std::int32_t size, const char* name)
{
    if (position < 0 || position >= size) {
        throw Error(Status::InvalidArgument,
                    std::string(name) + " has no value " + std::to_string(position));
    }
}

constexpr std::int32_t kThreeValues = 3;

}  // namespace

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
    return m_editor->Guard()("lVBColor",
                             [&] { lVBColor = m_editor->Form().Attributes().Color().Value(); });
}

Status Material::put_lVBColor(const std::int32_t& lVBColor)
{
    return m_editor->Guard()("lVBColor", [&] {
        m_editor->ChangeAtOnce([&] { m_editor->Form().Attributes().Color().Show(lVBColor); });
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
    return m_editor->Guard()("TextureFileName", [&] {
        TextureFileName = m_editor->Attributes().Carried().Textures.primary;
    });
}

Status Material::put_TextureFileName(const std::string& TextureFileName)
{
    return m_editor->Guard()("TextureFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().Textures.primary = TextureFileName; });
    });
}

Status Material::get_TextureOverlayFileName(std::string& TextureOverlayFileName)
{
    return m_editor->Guard()("TextureOverlayFileName", [&] {
        TextureOverlayFileName = m_editor->Attributes().Carried().Textures.overlay;
    });
}

Status Material::put_TextureOverlayFileName(const std::string& TextureOverlayFileName)
{
    return m_editor->Guard()("TextureOverlayFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().Textures.overlay = TextureOverlayFileName; });
    });
}

Status Material::get_TextureBumpmapFileName(std::string& TextureBumpmapFileName)
{
    return m_editor->Guard()("TextureBumpmapFileName", [&] {
        TextureBumpmapFileName = m_editor->Attributes().Carried().Textures.bump;
    });
}

Status Material::put_TextureBumpmapFileName(const std::string& TextureBumpmapFileName)
{
    return m_editor->Guard()("TextureBumpmapFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().Textures.bump = TextureBumpmapFileName; });
    });
}

Status Material::get_TextureSpecularMapFileName(std::string& TextureSpecularMapFileName)
{
    return m_editor->Guard()("TextureSpecularMapFileName", [&] {
        TextureSpecularMapFileName = m_editor->Attributes().Carried().Textures.specular;
    });
}

Status Material::put_TextureSpecularMapFileName(const std::string& TextureSpecularMapFileName)
{
    return m_editor->Guard()("TextureSpecularMapFileName", [&] {
        m_editor->ChangeAtOnce([&] {
            m_editor->Attributes().Carried().Textures.specular = TextureSpecularMapFileName;
        });
    });
}

Status Material::get_TextureEnvironmentMapFileName(std::string& TextureEnvironmentMapFileName)
{
    return m_editor->Guard()("TextureEnvironmentMapFileName", [&] {
        TextureEnvironmentMapFileName = m_editor->Attributes().Carried().Textures.environment;
    });
}

Status Material::put_TextureEnvironmentMapFileName(const std::string& TextureEnvironmentMapFileName)
{
    return m_editor->Guard()("TextureEnvironmentMapFileName", [&] {
        m_editor->ChangeAtOnce([&] {
            m_editor->Attributes().Carried().Textures.environment = TextureEnvironmentMapFileName;
        });
    });
}

Status Material::get_TextureAlphaFileName(std::string& TextureAlphaFileName)
{
    return m_editor->Guard()("TextureAlphaFileName", [&] {
        TextureAlphaFileName = m_editor->Attributes().Carried().Textures.alpha;
    });
}

Status Material::put_TextureAlphaFileName(const std::string& TextureAlphaFileName)
{
    return m_editor->Guard()("TextureAlphaFileName", [&] {
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().Textures.alpha = TextureAlphaFileName; });
    });
}

Status Material::get_FlatWrapType(CorvexDB::FlatWrapType& FlatWrapType)
{
    return m_editor->Guard()("FlatWrapType",
                             [&] { FlatWrapType = m_editor->Attributes().Carried().FlatWrap; });
}

Status Material::put_FlatWrapType(const CorvexDB::FlatWrapType& FlatWrapType)
{
    return m_editor->Guard()("FlatWrapType", [&] {
        CheckPosition(static_cast<std::int32_t>(FlatWrapType), kThreeValues, "FlatWrapType");
        m_editor->ChangeAtOnce([&] { m_editor->Attributes().Carried().FlatWrap = FlatWrapType; });
    });
}

Status Material::get_TextureTilesPerUnit(float& TextureTilesPerUnit)
{
    return m_editor->Guard()("TextureTilesPerUnit", [&] {
        TextureTilesPerUnit = m_editor->Attributes().Carried().TilesPerUnit;
    });
}

Status Material::put_TextureTilesPerUnit(const float& TextureTilesPerUnit)
{
    return m_editor->Guard()("TextureTilesPerUnit", [&] {
        CheckFinite(TextureTilesPerUnit, "TextureTilesPerUnit");
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().TilesPerUnit = TextureTilesPerUnit; });
    });
}

Status Material::get_TextureOriginU(float& TextureOriginU)
{
    return m_editor->Guard()("TextureOriginU", [&] {
        TextureOriginU = m_editor->Attributes().Carried().Placement.originU;
    });
}

Status Material::put_TextureOriginU(const float& TextureOriginU)
{
    return m_editor->Guard()("TextureOriginU", [&] {
        CheckFinite(TextureOriginU, "TextureOriginU");
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().Placement.originU = TextureOriginU; });
    });
}

Status Material::get_TextureOriginV(float& TextureOriginV)
{
    return m_editor->Guard()("TextureOriginV", [&] {
        TextureOriginV = m_editor->Attributes().Carried().Placement.originV;
    });
}

Status Material::put_TextureOriginV(const float& TextureOriginV)
{
    return m_editor->Guard()("TextureOriginV", [&] {
        CheckFinite(TextureOriginV, "TextureOriginV");
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().Placement.originV = TextureOriginV; });
    });
}

Status Material::get_TextureScaleU(float& TextureScaleU)
{
    return m_editor->Guard()("TextureScaleU", [&] {
        TextureScaleU = m_editor->Attributes().Carried().Placement.scaleU;
    });
}

Status Material::put_TextureScaleU(const float& TextureScaleU)
{
    return m_editor->Guard()("TextureScaleU", [&] {
        CheckFinite(TextureScaleU, "TextureScaleU");
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().Placement.scaleU = TextureScaleU; });
    });
}

Status Material::get_TextureScaleV(float& TextureScaleV)
{
    return m_editor->Guard()("TextureScaleV", [&] {
        TextureScaleV = m_editor->Attributes().Carried().Placement.scaleV;
    });
}

Status Material::put_TextureScaleV(const float& TextureScaleV)
{
    return m_editor->Guard()("TextureScaleV", [&] {
        CheckFinite(TextureScaleV, "TextureScaleV");
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().Carried().Placement.scaleV = TextureScaleV; });
    });
}

Status Material::get_WrapType(CorvexDB::WrapType& WrapType)
{
    return m_editor->Guard()("WrapType", [&] { WrapType = m_editor->Attributes().Carried().Wrap; });
}

Status Material::put_WrapType(const CorvexDB::WrapType& WrapType)
{
    return m_editor->Guard()("WrapType", [&] {
        CheckPosition(static_cast<std::int32_t>(WrapType), kThreeValues, "WrapType");
        m_editor->ChangeAtOnce([&] { m_editor->Attributes().Carried().Wrap = WrapType; });
    });
}

Status Material::get_MaterialWrapOrientationU(float& MaterialWrapOrientationU)
{
    return m_editor->Guard()("MaterialWrapOrientationU", [&] {
        MaterialWrapOrientationU =
            m_editor->Form().Attributes().Form().chkFlipU->isChecked() ? 1.0F : 0.0F;
    });
}

Status Material::get_MaterialWrapOrientationV(float& MaterialWrapOrientationV)
{
    return m_editor->Guard()("MaterialWrapOrientationV", [&] {
        MaterialWrapOrientationV =
            m_editor->Form().Attributes().Form().chkFlipV->isChecked() ? 1.0F : 0.0F;
    });
}

Status Material::get_MaterialDoubleSided(bool& MaterialDoubleSided)
{
    return m_editor->Guard()("MaterialDoubleSided", [&] {
        MaterialDoubleSided = m_editor->Form().Attributes().Form().chkDoubleSided->isChecked();
    });
}

Status Material::get_MaterialAlphaTest(std::int32_t& MaterialAlphaTest)
{
    return m_editor->Guard()("MaterialAlphaTest", [&] {
        MaterialAlphaTest = m_editor->Form().Attributes().Form().cboAlphaTest->currentIndex();
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
            [&] { m_editor->Attributes().Carried().RayTrace.MaterialType = lRaytraceType; });
    });
}

Status Material::put_lRaytracePredefinedType(const std::int32_t& lRaytracePredefinedType)
{
    return m_editor->Guard()("lRaytracePredefinedType", [&] {
        m_editor->ChangeAtOnce([&] {
            m_editor->Attributes().Carried().RayTrace.PredefinedType = lRaytracePredefinedType;
        });
    });
}

Status Material::put_lRaytraceColorPatternType(const std::int32_t& lRaytraceColorPatternType)
{
    return m_editor->Guard()("lRaytraceColorPatternType", [&] {
        m_editor->ChangeAtOnce([&] {
            m_editor->Attributes().Carried().RayTrace.ColorPattern = lRaytraceColorPatternType;
        });
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
        m_editor->ChangeSilently([&] { m_editor->Attributes().Carried().Textures = files; });
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
            m_editor->Attributes().Carried().Placement = {stTextureOriginU, stTextureOriginV,
                                                          stTextureScaleU, stTextureScaleV};
        });
    });
}

}  // namespace CorvexMaterial
