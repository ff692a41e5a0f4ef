#include "PanelAttributes.h"

#include "AdvancedPanel.h"
#include "ArgumentChecks.h"
#include "AttributePanel.h"
#include "CustomFieldsPanel.h"
#include "PluginPanel.h"
#include "ui_AdvancedPanel.h"
#include <CorvexMaterial/AttributeText.h>
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <array>

namespace CorvexMaterial {

namespace {

constexpr std::size_t kApplyModes = 3;

bool HasOneText(const AttributeRow& row)
{
    return row.path.LeadsIntoRecord() && row.kind != AttributeKind::Numbers &&
           row.kind != AttributeKind::Texts;
}

void CheckRecord(const CorvexDB::udtMaterial& record)
{
    for (const AttributeRow& row : AttributeRows()) {
        if (!HasOneText(row)) {
            continue;
        }
        const AttributeValue value = row.path.get(record);
        if (const auto* single = std::get_if<float>(&value)) {
            CheckFinite(*single, row.label);
        }
        // Raytrace positions are the raytracer's; whatever they are is kept.
        if (row.kind == AttributeKind::ListPosition && row.group != AttributeGroup::Raytrace) {
            CheckPosition(std::get<std::int32_t>(value),
                          static_cast<std::size_t>(row.range.most) + 1, row.label);
        }
    }
    static_cast<void>(RoundHalfEven(record.OverlayTranslucency));
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

std::vector<QWidget*> PanelAttributes::ControlsOf(const TouchedRow& row)
{
    return row.attribute == Attribute::CustomFields ? m_panel.CustomFields().Field(row.element)
                                                    : At(row.attribute).controls;
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
    CorvexDB::udtMaterial record;
    for (const AttributeRow& row : AttributeRows()) {
        if (!HasOneText(row)) {
            continue;
        }
        const Binding& binding = At(row.attribute);
        const std::string text =
            binding.amount ? TextOfWholeNumber(binding.amount()) : binding.text();
        if (!SetText(record, row.attribute, text)) {
            throw Error(Status::Failed, std::string(row.label) + " cannot be \"" + text + '"');
        }
    }
    record.Plugin = m_panel.Plugins().SelectedName();
    record.CustomFields = m_panel.CustomFields().Texts();
    return record;
}

void PanelAttributes::ShowRecord(const CorvexDB::udtMaterial& record)
{
    CheckRecord(record);
    // First of all, because it asks the plug-in, which may refuse.
    m_panel.Plugins().Restore(record.Plugin, record.PluginParameters);
    for (const AttributeRow& row : AttributeRows()) {
        // Positions of the raytracer need not be in its lists; they have no text then.
        if (HasOneText(row) && row.group != AttributeGroup::Plugin &&
            row.group != AttributeGroup::Raytrace) {
            Show(row.attribute, TextIn(record, row.attribute).value());
        }
    }
    m_kept.RayTrace = record.RayTrace;
    m_panel.CustomFields().ShowTexts(record.CustomFields);
}

}  // namespace CorvexMaterial
