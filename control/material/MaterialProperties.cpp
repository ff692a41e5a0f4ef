#include "AdvancedPanel.h"
#include "ArgumentChecks.h"
#include "AttributePanel.h"
#include "ChannelPanel.h"
#include "LibraryPanel.h"
#include "MaterialEditor.h"
#include "SectionHeader.h"
#include "SurfacePanel.h"
#include "ui_AdvancedPanel.h"
#include <CorvexMaterial/Looks.h>
#include <CorvexMaterial/Material.h>

// The published properties but for the textures': each crosses the border, reads or writes one
// value.

namespace CorvexMaterial {

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
    return m_editor->Guard()("bTexturePanel",
                             [&] { m_editor->Layout().SetTexturePanel(bTexturePanel); });
}

Status Material::get_bMaterialLibraryPanel(bool& bMaterialLibraryPanel)
{
    return m_editor->Guard()("bMaterialLibraryPanel", [&] {
        bMaterialLibraryPanel = m_editor->Form().Materials().IsExpanded();
    });
}

Status Material::put_bMaterialLibraryPanel(const bool& bMaterialLibraryPanel)
{
    return m_editor->Guard()("bMaterialLibraryPanel", [&] {
        m_editor->Layout().SetMaterialLibraryPanel(bMaterialLibraryPanel);
    });
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
        CheckPosition(lRaytracePredefinedType, kPredefinedTypeNames.size(),
                      "lRaytracePredefinedType");
        m_editor->ChangeAtOnce(
            [&] { m_editor->Attributes().RayTrace().PredefinedType = lRaytracePredefinedType; });
    });
}

Status Material::put_lRaytraceColorPatternType(const std::int32_t& lRaytraceColorPatternType)
{
    return m_editor->Guard()("lRaytraceColorPatternType", [&] {
        CheckPosition(lRaytraceColorPatternType, ColorPatternLooks().size(),
                      "lRaytraceColorPatternType");
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
    // The panel's own state: a window that is disabled for a while shuts it without changing it.
    return m_editor->Guard()(
        "Enabled", [&] { Enabled = m_editor->Form().Picture().isEnabledTo(parentWidget()); });
}

Status Material::put_Enabled(const bool& Enabled)
{
    return m_editor->Guard()("Enabled", [&] { m_editor->Form().Picture().setEnabled(Enabled); });
}

Status Material::get_hwnd(WId& hwnd)
{
    return m_editor->Guard()("hwnd", [&] { hwnd = winId(); });
}

}  // namespace CorvexMaterial
