// Which control or field holds each attribute.

#include "AdvancedPanel.h"
#include "AmountField.h"
#include "AttributeHints.h"
#include "AttributePanel.h"
#include "ChannelPanel.h"
#include "DifferenceMark.h"
#include "PanelAttributes.h"
#include "PlacementPanel.h"
#include "PluginPanel.h"
#include "SurfacePanel.h"
#include "TexturePage.h"
#include "ui_AdvancedPanel.h"
#include <CorvexMaterial/AttributeText.h>
#include <CorvexMaterial/NumberText.h>

namespace CorvexMaterial {

namespace {

std::int32_t ToWhole(const std::string& text)
{
    return WholeNumberFromText(text).value_or(0);
}

auto EditOf(Attribute attribute, AttributePanel& panel)
{
    return [attribute, &panel] { Q_EMIT panel.Edited({{attribute}}); };
}

}  // namespace

PanelAttributes::PanelAttributes(AttributePanel& panel) : m_panel(panel)
{
    BindKept();
    BindSurface();
    BindAdvanced();
    BindTextures();
    BindPlacement();
    BindOthers();
    for (const AttributeRow& row : AttributeRows()) {
        if (At(row.attribute).controls.empty()) {
            At(row.attribute).controls = m_panel.Channels().Textures().ControlsOf(row.attribute);
        }
    }
}

void PanelAttributes::BindAmount(Attribute attribute, AmountField& field)
{
    TellOtherNames(field, attribute);
    At(attribute) = {
        [&field] { return field.text().toStdString(); },
        [&field](const std::string& text) { field.setText(QString::fromStdString(text)); },
        [&field] { return field.Value(); },
        {&field}};
    QObject::connect(
        &field, &QLineEdit::textChanged, &m_panel,
        [attribute, &field, &panel = m_panel] { Q_EMIT panel.Edited(field.Touched(attribute)); });
    QObject::connect(&field.Input(), &NumberInput::Retaken, &m_panel,
                     [attribute, &field, &panel = m_panel] {
                         if (DifferenceMark::IsOn(field)) {
                             Q_EMIT panel.Edited({{attribute}});
                         }
                     });
}

void PanelAttributes::BindFlag(Attribute attribute, QCheckBox& box)
{
    TellOtherNames(box, attribute);
    At(attribute) = {
        [&box] { return TextOfFlag(box.isChecked()); },
        [&box](const std::string& text) { box.setChecked(FlagFromText(text).value_or(false)); },
        {},
        {&box}};
    QObject::connect(&box, &QCheckBox::clicked, &m_panel, EditOf(attribute, m_panel));
}

void PanelAttributes::BindList(Attribute attribute, QComboBox& list)
{
    TellOtherNames(list, attribute);
    At(attribute) = {[&list] { return TextOfWholeNumber(list.currentIndex()); },
                     [&list](const std::string& text) { list.setCurrentIndex(ToWhole(text)); },
                     {},
                     {&list}};
    QObject::connect(&list, &QComboBox::activated, &m_panel, EditOf(attribute, m_panel));
}

void PanelAttributes::BindSurface()
{
    for (const SurfacePanel::Amount& amount : m_panel.Surface().Amounts()) {
        BindAmount(amount.attribute, amount.field);
        At(amount.attribute).controls.push_back(&amount.slider);
    }
    At(Attribute::Color) = {
        [this] { return TextOfWholeNumber(m_panel.Surface().Color().Value()); },
        [this](const std::string& text) { m_panel.Surface().Color().Show(ToWhole(text)); },
        {},
        m_panel.Surface().Color().Shown()};
    QObject::connect(&m_panel.Surface().Color(), &ColourField::Edited, &m_panel,
                     EditOf(Attribute::Color, m_panel));
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
        },
        {},
        {form.chkApplyRelative}};
    QObject::connect(form.chkApplyRelative, &QCheckBox::clicked, &m_panel,
                     EditOf(Attribute::ApplyRelative, m_panel));
}

void PanelAttributes::BindTextures()
{
    TexturePage& page = m_panel.Channels().Textures();
    for (const TextureLayerRow& row : kTextureLayers) {
        const TextureLayer layer = row.layer;
        At(kTextureFiles[static_cast<std::size_t>(layer)]) = {
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
    for (const AttributeRow& row : AttributeRows()) {
        if (const Attribute attribute = row.attribute; PlacementPanel::Has(attribute)) {
            At(attribute) = {[&page, attribute] { return page.Placing().Text(attribute); },
                             [&page, attribute](const std::string& text) {
                                 page.Placing().Show(attribute, text);
                             }};
        }
    }
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

// Before the controls, each of which takes its attribute over.
void PanelAttributes::BindKept()
{
    for (const AttributeRow& row : AttributeRows()) {
        if (row.path.LeadsIntoRecord()) {
            const Attribute attribute = row.attribute;
            At(attribute) = {[this, attribute] { return TextIn(m_kept, attribute).value(); },
                             [this, attribute](const std::string& text) {
                                 // What does not convert leaves the attribute as it is.
                                 static_cast<void>(SetText(m_kept, attribute, text));
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
        [this](const std::string& text) { m_panel.Plugins().SelectName(text); },
        {},
        {&m_panel.Plugins().List()}};
    At(Attribute::PluginParameters).controls = m_panel.Plugins().Editors();
}

}  // namespace CorvexMaterial
