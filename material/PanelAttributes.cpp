#include "material/PanelAttributes.h"

#include "host/Status.h"
#include "material/AdvancedPanel.h"
#include "material/AlphaTests.h"
#include "material/AttributePanel.h"
#include "material/SurfacePanel.h"
#include "platform/ArgumentChecks.h"
#include "platform/NumberText.h"
#include "plugins/CustomFieldsPanel.h"
#include "plugins/PluginPanel.h"
#include "textures/ChannelPanel.h"
#include "textures/TexturePage.h"
#include "textures/TextureWrap.h"
#include "ui_AdvancedPanel.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr std::size_t kApplyModes = 3;

bool IsFinite(const CorvexDB::cdtRayTraceMaterialAttributes& raytrace)
{
    const std::array amounts{raytrace.Brilliance,
                             raytrace.Reflection,
                             raytrace.IridescenceFactor,
                             raytrace.IridescenceThickness,
                             raytrace.IridescenceTurbulence,
                             raytrace.Roughness,
                             raytrace.NormalDepth,
                             raytrace.NormalScale,
                             raytrace.ColorPatternFrequency,
                             raytrace.ColorPatternTurbulence,
                             raytrace.NormalPatternFrequency,
                             raytrace.NormalPatternTurbulence};
    const auto isFinite = [](float value) { return std::isfinite(value); };
    return std::ranges::all_of(amounts, isFinite) &&
           std::ranges::all_of(raytrace.ColorPatternColor, [&](const auto& colour) {
               return isFinite(colour.red) && isFinite(colour.green) && isFinite(colour.blue) &&
                      isFinite(colour.alpha);
           });
}

void CheckRecord(const CorvexDB::udtMaterial& record)
{
    CheckPosition(record.AlphaTest, kAlphaTestNames.size(), "AlphaTest");
    CheckPosition(record.TextureAlphaChannelUse,
                  static_cast<std::size_t>(TexturePage::AlphaChannelUseCount()),
                  "TextureAlphaChannelUse");
    CheckPosition(static_cast<std::int32_t>(record.Wrap), kWrapTitles.size(), "WrapType");
    CheckPosition(static_cast<std::int32_t>(record.FlatWrap), kFlatWrapTitles.size(),
                  "FlatWrapType");
    const CorvexDB::TexturePlacement& placement = record.Placement;
    for (const float value : {placement.originU, placement.originV, placement.scaleU,
                              placement.scaleV, record.TilesPerUnit}) {
        if (!std::isfinite(value)) {
            throw Error(Status::InvalidArgument, "a texture placement is not a finite number");
        }
    }
    if (!IsFinite(record.RayTrace)) {
        throw Error(Status::InvalidArgument, "a raytrace attribute is not a finite number");
    }
}

}  // namespace

std::string PanelAttributes::TextOf(Attribute attribute)
{
    return At(attribute).text();
}

void PanelAttributes::Show(Attribute attribute, const std::string& canonicalText)
{
    At(attribute).show(canonicalText);
}

std::string PanelAttributes::SelectedPlugin()
{
    return m_panel.Plugins().SelectedName();
}

std::vector<std::string> PanelAttributes::PluginParameterTexts()
{
    return m_panel.Plugins().ParameterTexts();
}

std::size_t PanelAttributes::PluginParameterCount() const
{
    return m_panel.Plugins().ParameterCount();
}

std::vector<std::string> PanelAttributes::PluginParameterDefaults()
{
    return m_panel.Plugins().DefaultTexts();
}

void PanelAttributes::ShowPluginParameters(const std::vector<std::string>& texts)
{
    m_panel.Plugins().ShowTexts(texts);
}

CustomFieldValues PanelAttributes::CustomFieldTexts()
{
    return m_panel.CustomFields().Texts();
}

void PanelAttributes::ShowCustomFields(const CustomFieldValues& texts)
{
    m_panel.CustomFields().ShowTexts(texts);
}

CorvexDB::ApplyMode PanelAttributes::ApplyRelative() const
{
    switch (m_panel.Advanced().Form().chkApplyRelative->checkState()) {
    case Qt::Checked:
        return CorvexDB::ApplyMode::Relative;
    case Qt::PartiallyChecked:
        return CorvexDB::ApplyMode::FilesOnly;
    default:
        return CorvexDB::ApplyMode::Absolute;
    }
}

void PanelAttributes::ShowApplyRelative(CorvexDB::ApplyMode mode)
{
    CheckPosition(static_cast<std::int32_t>(mode), kApplyModes, "ApplyRelative");
    constexpr std::array<Qt::CheckState, kApplyModes> kStates{Qt::Unchecked, Qt::Checked,
                                                              Qt::PartiallyChecked};
    m_panel.Advanced().Form().chkApplyRelative->setCheckState(
        kStates[static_cast<std::size_t>(mode)]);
}

std::int32_t PanelAttributes::Amount(Attribute attribute)
{
    return At(attribute).amount();
}

CorvexDB::udtMaterial PanelAttributes::Record()
{
    const Ui::AdvancedPanel& advanced = m_panel.Advanced().Form();
    const TexturePage& textures = m_panel.Channels().Textures();
    CorvexDB::udtMaterial record;
    record.Color = m_panel.Surface().Color().Value();
    record.Ambient = Amount(Attribute::Ambient);
    record.Emissive = Amount(Attribute::Emissive);
    record.Specular = Amount(Attribute::Specular);
    record.Transparency = Amount(Attribute::Transparency);
    record.WrapOrientationU = textures.FlipU();
    record.WrapOrientationV = textures.FlipV();
    record.DoubleSided = advanced.chkDoubleSided->isChecked();
    record.AlphaTest = advanced.cboAlphaTest->currentIndex();
    record.AlphaTestReference = Amount(Attribute::AlphaTestReference);
    record.Wrap = textures.Wrap();
    record.FlatWrap = textures.FlatWrap();
    record.TilesPerUnit = textures.TilesPerUnit();
    record.TextureAlphaChannelUse = textures.AlphaChannelUse();
    record.AlphaIsTransparent = advanced.chkAlphaIsTransparent->isChecked();
    record.OverlayTranslucency = static_cast<float>(Amount(Attribute::OverlayTranslucency));
    record.Textures = textures.Files();
    record.Placement = textures.Placement();
    record.RayTrace = m_rayTrace;
    record.Plugin = m_panel.Plugins().SelectedName();
    record.CustomFields = m_panel.CustomFields().Texts();
    return record;
}

void PanelAttributes::ShowRecord(const CorvexDB::udtMaterial& record)
{
    const std::string overlay = TextOfWholeNumber(RoundHalfEven(record.OverlayTranslucency));
    CheckRecord(record);
    // First of all, because it asks the plug-in, which may refuse.
    m_panel.Plugins().Restore(record.Plugin, record.PluginParameters);
    TexturePage& textures = m_panel.Channels().Textures();
    m_panel.Surface().Color().Show(record.Color);
    Show(Attribute::Ambient, TextOfWholeNumber(record.Ambient));
    Show(Attribute::Emissive, TextOfWholeNumber(record.Emissive));
    Show(Attribute::Specular, TextOfWholeNumber(record.Specular));
    Show(Attribute::Transparency, TextOfWholeNumber(record.Transparency));
    textures.SetFlipU(record.WrapOrientationU);
    textures.SetFlipV(record.WrapOrientationV);
    Show(Attribute::DoubleSided, TextOfFlag(record.DoubleSided));
    Show(Attribute::AlphaTest, TextOfWholeNumber(record.AlphaTest));
    Show(Attribute::AlphaTestReference, TextOfWholeNumber(record.AlphaTestReference));
    textures.SetWrap(record.Wrap);
    textures.SetAlphaChannelUse(record.TextureAlphaChannelUse);
    Show(Attribute::AlphaIsTransparent, TextOfFlag(record.AlphaIsTransparent));
    textures.SetOverlayTranslucencyText(overlay);
    for (const TextureLayer layer : kLayerMethodOrder) {
        textures.SetFile(layer, record.Textures.*RowOf(layer).file);
    }
    textures.SetFlatWrap(record.FlatWrap);
    textures.SetTilesPerUnit(record.TilesPerUnit);
    textures.SetPlacement(record.Placement);
    m_rayTrace = record.RayTrace;
    m_panel.CustomFields().ShowTexts(record.CustomFields);
}

}  // namespace CorvexMaterial
