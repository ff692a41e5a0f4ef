#include "material/PanelAttributes.h"

#include "host/Status.h"
#include "material/AlphaTests.h"
#include "material/AttributePanel.h"
#include "material/LayerAttributes.h"
#include "platform/NumberText.h"
#include "ui_AttributePanel.h"

#include <cmath>

namespace CorvexMaterial {

namespace {

using CorvexDB::cdtRayTraceMaterialAttributes;
using CorvexDB::PatternColour;

std::int32_t ToWhole(const std::string& text)
{
    return WholeNumberFromText(text).value_or(0);
}

void CheckPosition(std::int32_t position, std::int32_t size, const char* name)
{
    if (position < 0 || position >= size) {
        throw Error(Status::InvalidArgument,
                    std::string(name) + " has no position " + std::to_string(position));
    }
}

constexpr std::int32_t kWrapTypes = 3;
constexpr std::int32_t kFlatWrapTypes = 3;

}  // namespace

PanelAttributes::PanelAttributes(AttributePanel& panel) : m_panel(panel)
{
    BindAmounts();
    BindChoices();
    BindTextures();
    BindRaytrace();
    BindRaytraceColours();
    BindOthers();
}

std::string PanelAttributes::TextOf(Attribute attribute)
{
    return At(attribute).text();
}

void PanelAttributes::Show(Attribute attribute, const std::string& canonicalText)
{
    At(attribute).show(canonicalText);
}

void PanelAttributes::BindAmounts()
{
    const auto bind = [this](Attribute attribute, QLineEdit* field) {
        At(attribute) = {
            [field] { return field->text().toStdString(); },
            [field](const std::string& text) { field->setText(QString::fromStdString(text)); }};
    };
    Ui::AttributePanel& form = m_panel.Form();
    bind(Attribute::Emissive, form.txtEmissive);
    bind(Attribute::Specular, form.txtSpecular);
    bind(Attribute::Transparency, form.txtTransparency);
    bind(Attribute::Ambient, form.txtAmbient);
    bind(Attribute::AlphaTestReference, form.txtAlphaTestReference);
    bind(Attribute::OverlayTranslucency, form.txtTexture2Translucency);
}

void PanelAttributes::BindChoices()
{
    const auto bindFlag = [this](Attribute attribute, QCheckBox* box) {
        At(attribute) = {[box] { return TextOfFlag(box->isChecked()); },
                         [box](const std::string& text) {
                             box->setChecked(FlagFromText(text).value_or(false));
                         }};
    };
    const auto bindList = [this](Attribute attribute, QComboBox* list) {
        At(attribute) = {[list] { return TextOfWholeNumber(list->currentIndex()); },
                         [list](const std::string& text) { list->setCurrentIndex(ToWhole(text)); }};
    };
    Ui::AttributePanel& form = m_panel.Form();
    bindFlag(Attribute::WrapOrientationU, form.chkFlipU);
    bindFlag(Attribute::WrapOrientationV, form.chkFlipV);
    bindFlag(Attribute::DoubleSided, form.chkDoubleSided);
    bindFlag(Attribute::AlphaIsTransparent, form.chkAlphaIsTransparent);
    bindList(Attribute::AlphaTest, form.cboAlphaTest);
    bindList(Attribute::TextureAlphaChannelUse, form.cboTextureAlphaChannelUse);
    At(Attribute::ApplyRelative) = {
        [this] { return TextOfWholeNumber(static_cast<std::int32_t>(ApplyRelative())); },
        [this](const std::string& text) {
            ShowApplyRelative(FlagFromText(text).value_or(false) ? CorvexDB::ApplyMode::Relative
                                                                 : CorvexDB::ApplyMode::Absolute);
        }};
    At(Attribute::Color) = {
        [this] { return TextOfWholeNumber(m_panel.Color().Value()); },
        [this](const std::string& text) { m_panel.Color().Show(ToWhole(text)); }};
}

void PanelAttributes::BindTextures()
{
    for (const TextureLayerRow& row : kTextureLayers) {
        const auto file = row.file;
        At(AttributeOf(row.layer)) = {
            [this, file] { return m_carried.Textures.*file; },
            [this, file](const std::string& text) { m_carried.Textures.*file = text; }};
    }
    const auto bindSingle = [this](Attribute attribute, float& field) {
        At(attribute) = {
            [&field] { return TextOfSingle(field); },
            [&field](const std::string& text) { field = SingleFromText(text).value_or(field); }};
    };
    bindSingle(Attribute::OriginU, m_carried.Placement.originU);
    bindSingle(Attribute::OriginV, m_carried.Placement.originV);
    bindSingle(Attribute::ScaleU, m_carried.Placement.scaleU);
    bindSingle(Attribute::ScaleV, m_carried.Placement.scaleV);
    bindSingle(Attribute::TilesPerUnit, m_carried.TilesPerUnit);
    At(Attribute::WrapType) = {
        [this] { return TextOfWholeNumber(static_cast<std::int32_t>(m_carried.Wrap)); },
        [this](const std::string& text) {
            m_carried.Wrap = static_cast<CorvexDB::WrapType>(ToWhole(text));
        }};
    At(Attribute::FlatWrapType) = {
        [this] { return TextOfWholeNumber(static_cast<std::int32_t>(m_carried.FlatWrap)); },
        [this](const std::string& text) {
            m_carried.FlatWrap = static_cast<CorvexDB::FlatWrapType>(ToWhole(text));
        }};
}

void PanelAttributes::BindRaytrace()
{
    const auto bindSingle = [this](Attribute attribute, float& field) {
        At(attribute) = {
            [&field] { return TextOfSingle(field); },
            [&field](const std::string& text) { field = SingleFromText(text).value_or(field); }};
    };
    const auto bindList = [this](Attribute attribute, std::int32_t& field) {
        At(attribute) = {[&field] { return TextOfWholeNumber(field); },
                         [&field](const std::string& text) { field = ToWhole(text); }};
    };
    cdtRayTraceMaterialAttributes& record = m_carried.RayTrace;
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
    bindList(Attribute::RayTraceNormalPattern, record.NormalPattern);
    bindList(Attribute::RayTraceType, record.MaterialType);
    bindList(Attribute::RaytracePredefinedType, record.PredefinedType);
    bindList(Attribute::RaytracePredefinedMaterial, record.PreDefinedMaterial);
    bindList(Attribute::RaytraceColorPattern, record.ColorPattern);
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
    for (PatternColour& colour : m_carried.RayTrace.ColorPatternColor) {
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
    // No plug-in can be chosen on the panel, so every stored name is unknown and reads as none.
    At(Attribute::Plugin) = {[] { return std::string(); }, [](const std::string& /*text*/) {}};
}

std::vector<std::string> PanelAttributes::PluginParameterTexts()
{
    return {};
}

std::vector<std::string> PanelAttributes::PluginParameterDefaults()
{
    return {};
}

void PanelAttributes::ShowPluginParameters(const std::vector<std::string>& /*texts*/) {}

CustomFieldValues PanelAttributes::CustomFieldTexts()
{
    return m_carried.CustomFields;
}

void PanelAttributes::ShowCustomFields(const CustomFieldValues& texts)
{
    m_carried.CustomFields = texts;
}

CorvexDB::ApplyMode PanelAttributes::ApplyRelative() const
{
    return static_cast<CorvexDB::ApplyMode>([this] {
        switch (m_panel.Form().chkApplyRelative->checkState()) {
        case Qt::Checked:
            return 1;
        case Qt::PartiallyChecked:
            return 2;
        default:
            return 0;
        }
    }());
}

void PanelAttributes::ShowApplyRelative(CorvexDB::ApplyMode mode)
{
    CheckPosition(static_cast<std::int32_t>(mode), 3, "ApplyRelative");
    constexpr std::array kStates{Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    m_panel.Form().chkApplyRelative->setCheckState(kStates[static_cast<std::size_t>(mode)]);
}

std::int32_t PanelAttributes::Amount(Attribute attribute)
{
    return WholeNumberFromText(TextOf(attribute))
        .value_or(WholeNumberFromText(FactoryText(attribute)).value_or(0));
}

CorvexDB::udtMaterial PanelAttributes::Record()
{
    const Ui::AttributePanel& form = m_panel.Form();
    CorvexDB::udtMaterial record = m_carried;
    record.Color = m_panel.Color().Value();
    record.Ambient = Amount(Attribute::Ambient);
    record.Emissive = Amount(Attribute::Emissive);
    record.Specular = Amount(Attribute::Specular);
    record.Transparency = Amount(Attribute::Transparency);
    record.WrapOrientationU = form.chkFlipU->isChecked();
    record.WrapOrientationV = form.chkFlipV->isChecked();
    record.DoubleSided = form.chkDoubleSided->isChecked();
    record.AlphaTest = form.cboAlphaTest->currentIndex();
    record.AlphaTestReference = Amount(Attribute::AlphaTestReference);
    record.TextureAlphaChannelUse = form.cboTextureAlphaChannelUse->currentIndex();
    record.AlphaIsTransparent = form.chkAlphaIsTransparent->isChecked();
    record.OverlayTranslucency = static_cast<float>(Amount(Attribute::OverlayTranslucency));
    return record;
}

void PanelAttributes::ShowRecord(const CorvexDB::udtMaterial& record)
{
    for (const float value :
         {record.Placement.originU, record.Placement.originV, record.Placement.scaleU,
          record.Placement.scaleV, record.TilesPerUnit}) {
        if (!std::isfinite(value)) {
            throw Error(Status::InvalidArgument, "a texture placement is not a finite number");
        }
    }
    const std::string overlay = TextOfWholeNumber(RoundHalfEven(record.OverlayTranslucency));
    CheckPosition(record.AlphaTest, static_cast<std::int32_t>(kAlphaTestNames.size()), "AlphaTest");
    CheckPosition(record.TextureAlphaChannelUse, m_panel.Form().cboTextureAlphaChannelUse->count(),
                  "TextureAlphaChannelUse");
    CheckPosition(static_cast<std::int32_t>(record.Wrap), kWrapTypes, "WrapType");
    CheckPosition(static_cast<std::int32_t>(record.FlatWrap), kFlatWrapTypes, "FlatWrapType");

    m_panel.Color().Show(record.Color);
    Show(Attribute::Ambient, TextOfWholeNumber(record.Ambient));
    Show(Attribute::Emissive, TextOfWholeNumber(record.Emissive));
    Show(Attribute::Specular, TextOfWholeNumber(record.Specular));
    Show(Attribute::Transparency, TextOfWholeNumber(record.Transparency));
    Show(Attribute::WrapOrientationU, TextOfFlag(record.WrapOrientationU));
    Show(Attribute::WrapOrientationV, TextOfFlag(record.WrapOrientationV));
    Show(Attribute::DoubleSided, TextOfFlag(record.DoubleSided));
    Show(Attribute::AlphaTest, TextOfWholeNumber(record.AlphaTest));
    Show(Attribute::AlphaTestReference, TextOfWholeNumber(record.AlphaTestReference));
    Show(Attribute::TextureAlphaChannelUse, TextOfWholeNumber(record.TextureAlphaChannelUse));
    Show(Attribute::AlphaIsTransparent, TextOfFlag(record.AlphaIsTransparent));
    Show(Attribute::OverlayTranslucency, overlay);
    // The rest has no control of its own; the record is its storage.
    m_carried = record;
}

}  // namespace CorvexMaterial
