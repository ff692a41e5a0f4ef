// Which control or field holds each attribute.

#include "controls/AmountField.h"
#include "material/AdvancedPanel.h"
#include "material/AttributePanel.h"
#include "material/PanelAttributes.h"
#include "material/SurfacePanel.h"
#include "platform/NumberText.h"
#include "plugins/PluginPanel.h"
#include "textures/ChannelPanel.h"
#include "textures/TexturePage.h"
#include "ui_AdvancedPanel.h"
#include "ui_SurfacePanel.h"

namespace CorvexMaterial {

namespace {

using CorvexDB::cdtRayTraceMaterialAttributes;
using CorvexDB::PatternColour;

/// In the order of the layers.
constexpr std::array kLayerFiles{
    Attribute::Texture,        Attribute::TextureOverlay,     Attribute::TextureAlpha,
    Attribute::TextureBumpmap, Attribute::TextureSpecularMap, Attribute::TextureEnvironmentMap};
static_assert(kLayerFiles.size() == kTextureLayerCount);

std::int32_t ToWhole(const std::string& text)
{
    return WholeNumberFromText(text).value_or(0);
}

}  // namespace

PanelAttributes::PanelAttributes(AttributePanel& panel) : m_panel(panel)
{
    BindSurface();
    BindAdvanced();
    BindTextures();
    BindPlacement();
    BindRaytrace();
    BindRaytraceColours();
    BindOthers();
}

void PanelAttributes::BindAmount(Attribute attribute, AmountField& field)
{
    At(attribute) = {
        [&field] { return field.text().toStdString(); },
        [&field](const std::string& text) { field.setText(QString::fromStdString(text)); },
        [&field] { return field.Value(); }};
}

void PanelAttributes::BindFlag(Attribute attribute, QCheckBox& box)
{
    At(attribute) = {
        [&box] { return TextOfFlag(box.isChecked()); },
        [&box](const std::string& text) { box.setChecked(FlagFromText(text).value_or(false)); }};
}

void PanelAttributes::BindList(Attribute attribute, QComboBox& list)
{
    At(attribute) = {[&list] { return TextOfWholeNumber(list.currentIndex()); },
                     [&list](const std::string& text) { list.setCurrentIndex(ToWhole(text)); }};
}

void PanelAttributes::BindSurface()
{
    const Ui::SurfacePanel& form = m_panel.Surface().Form();
    BindAmount(Attribute::Emissive, *form.txtEmissive);
    BindAmount(Attribute::Specular, *form.txtSpecular);
    BindAmount(Attribute::Transparency, *form.txtTransparency);
    BindAmount(Attribute::Ambient, *form.txtAmbient);
    At(Attribute::Color) = {
        [this] { return TextOfWholeNumber(m_panel.Surface().Color().Value()); },
        [this](const std::string& text) { m_panel.Surface().Color().Show(ToWhole(text)); }};
}

void PanelAttributes::BindAdvanced()
{
    const Ui::AdvancedPanel& form = m_panel.Advanced().Form();
    BindAmount(Attribute::AlphaTestReference, *form.txtAlphaTestReference);
    BindFlag(Attribute::DoubleSided, *form.chkDoubleSided);
    BindFlag(Attribute::AlphaIsTransparent, *form.chkAlphaIsTransparent);
    BindList(Attribute::AlphaTest, *form.cboAlphaTest);
    At(Attribute::ApplyRelative) = {
        [this] { return TextOfWholeNumber(static_cast<std::int32_t>(ApplyRelative())); },
        [this](const std::string& text) {
            ShowApplyRelative(static_cast<CorvexDB::ApplyMode>(ToWhole(text)));
        }};
}

void PanelAttributes::BindTextures()
{
    TexturePage& page = m_panel.Channels().Textures();
    for (const TextureLayerRow& row : kTextureLayers) {
        const TextureLayer layer = row.layer;
        At(kLayerFiles[static_cast<std::size_t>(layer)]) = {
            [&page, layer] { return page.File(layer); },
            [&page, layer](const std::string& text) { page.SetFile(layer, text); }};
    }
    At(Attribute::OverlayTranslucency) = {
        [&page] { return page.OverlayTranslucencyText(); },
        [&page](const std::string& text) { page.SetOverlayTranslucencyText(text); },
        [&page] { return page.OverlayTranslucency(); }};
    At(Attribute::TextureAlphaChannelUse) = {
        [&page] { return TextOfWholeNumber(page.AlphaChannelUse()); },
        [&page](const std::string& text) { page.SetAlphaChannelUse(ToWhole(text)); }};
    At(Attribute::WrapOrientationU) = {
        [&page] { return TextOfFlag(page.FlipU()); },
        [&page](const std::string& text) { page.SetFlipU(FlagFromText(text).value_or(false)); }};
    At(Attribute::WrapOrientationV) = {
        [&page] { return TextOfFlag(page.FlipV()); },
        [&page](const std::string& text) { page.SetFlipV(FlagFromText(text).value_or(false)); }};
}

void PanelAttributes::BindPlacement()
{
    TexturePage& page = m_panel.Channels().Textures();
    const auto bindFraction = [&](Attribute attribute, float CorvexDB::TexturePlacement::*field) {
        At(attribute) = {[&page, field] { return TextOfSingle(page.Placement().*field); },
                         [&page, field](const std::string& text) {
                             CorvexDB::TexturePlacement placement = page.Placement();
                             placement.*field = SingleFromText(text).value_or(placement.*field);
                             page.SetPlacement(placement);
                         }};
    };
    bindFraction(Attribute::OriginU, &CorvexDB::TexturePlacement::originU);
    bindFraction(Attribute::OriginV, &CorvexDB::TexturePlacement::originV);
    bindFraction(Attribute::ScaleU, &CorvexDB::TexturePlacement::scaleU);
    bindFraction(Attribute::ScaleV, &CorvexDB::TexturePlacement::scaleV);
    At(Attribute::TilesPerUnit) = {[&page] { return TextOfSingle(page.TilesPerUnit()); },
                                   [&page](const std::string& text) {
                                       page.SetTilesPerUnit(
                                           SingleFromText(text).value_or(page.TilesPerUnit()));
                                   }};
    At(Attribute::WrapType) = {
        [&page] { return TextOfWholeNumber(static_cast<std::int32_t>(page.Wrap())); },
        [&page](const std::string& text) {
            page.SetWrap(static_cast<CorvexDB::WrapType>(ToWhole(text)));
        }};
    At(Attribute::FlatWrapType) = {
        [&page] { return TextOfWholeNumber(static_cast<std::int32_t>(page.FlatWrap())); },
        [&page](const std::string& text) {
            page.SetFlatWrap(static_cast<CorvexDB::FlatWrapType>(ToWhole(text)));
        }};
}

void PanelAttributes::BindRaytrace()
{
    const auto bindSingle = [this](Attribute attribute, float& field) {
        At(attribute) = {
            [&field] { return TextOfSingle(field); },
            [&field](const std::string& text) { field = SingleFromText(text).value_or(field); }};
    };
    const auto bindPosition = [this](Attribute attribute, std::int32_t& field) {
        At(attribute) = {[&field] { return TextOfWholeNumber(field); },
                         [&field](const std::string& text) { field = ToWhole(text); }};
    };
    cdtRayTraceMaterialAttributes& record = m_rayTrace;
    bindSingle(Attribute::RayTraceBrilliance, record.Brilliance);
    bindSingle(Attribute::RayTraceReflection, record.Reflection);
    bindSingle(Attribute::RayTraceNormalSize, record.NormalDepth);
    bindSingle(Attribute::RayTraceNormalScale, record.NormalScale);
    bindSingle(Attribute::RayTraceIridescenceFactor, record.IridescenceFactor);
    bindSingle(Attribute::RayTraceIridescenceThickness, record.IridescenceThickness);
    bindSingle(Attribute::RayTraceIridescenceTurbulence, record.IridescenceTurbulence);
    bindSingle(Attribute::RayTraceRoughness, record.Roughness);
    bindSingle(Attribute::RaytraceColorPatternFrequency, record.ColorPatternFrequency);
    bindSingle(Attribute::RaytraceColorPatternTurbulence, record.ColorPatternTurbulence);
    bindSingle(Attribute::RaytraceNormalFrequency, record.NormalPatternFrequency);
    bindSingle(Attribute::RaytraceNormalTurbulence, record.NormalPatternTurbulence);
    bindPosition(Attribute::RayTraceNormalPattern, record.NormalPattern);
    bindPosition(Attribute::RayTraceType, record.MaterialType);
    bindPosition(Attribute::RaytracePredefinedType, record.PredefinedType);
    bindPosition(Attribute::RaytracePredefinedMaterial, record.PreDefinedMaterial);
    bindPosition(Attribute::RaytraceColorPattern, record.ColorPattern);
    At(Attribute::RayTraceMetallic) = {
        [&record] { return TextOfWholeNumber(record.Metallic ? 1 : 0); },
        [&record](const std::string& text) {
            record.Metallic = FlagFromText(text).value_or(false);
        }};
}

void PanelAttributes::BindRaytraceColours()
{
    constexpr std::array kComponents{&PatternColour::red, &PatternColour::green,
                                     &PatternColour::blue};
    auto attribute = static_cast<std::size_t>(Attribute::RaytraceColorPattern0Red);
    for (PatternColour& colour : m_rayTrace.ColorPatternColor) {
        for (const auto component : kComponents) {
            float& field = colour.*component;
            m_bindings[attribute++] = {[&field] { return TextOfSingle(field); },
                                       [&field](const std::string& text) {
                                           field = SingleFromText(text).value_or(field);
                                       }};
        }
    }
}

void PanelAttributes::BindOthers()
{
    const auto bindText = [this](Attribute attribute, std::string& field) {
        At(attribute) = {[&field] { return field; },
                         [&field](const std::string& text) { field = text; }};
    };
    bindText(Attribute::TextureLibrary, m_textureLibrary);
    bindText(Attribute::MaterialLibrary, m_materialLibrary);
    At(Attribute::PreviewPrimitive) = {
        [this] { return TextOfWholeNumber(m_previewPrimitive); },
        [this](const std::string& text) { m_previewPrimitive = ToWhole(text); }};
    At(Attribute::Plugin) = {
        [this] { return m_panel.Plugins().ListText(); },
        [this](const std::string& text) { m_panel.Plugins().SelectName(text); }};
}

}  // namespace CorvexMaterial
