// The values that the panel's rows show, or that a missing plug-in left.

#include "PluginPanel.h"

#include "PluginParameters.h"
#include "PluginRow.h"
#include "Trap.h"
#include <CorvexMaterial/NumberText.h>

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

std::vector<std::string> TextsOf(const std::vector<float>& values)
{
    std::vector<std::string> texts;
    for (const float value : values) {
        texts.push_back(TextOfSingle(value));
    }
    return texts;
}

void RefuseBeyondLimit(std::size_t count)
{
    if (count > kPluginParameterLimit) {
        throw Error(Status::SubscriptOutOfRange,
                    "it has " + std::to_string(count) + " parameters, of which " +
                        std::to_string(kPluginParameterLimit) + " can be shown");
    }
}

// Stored values may be older than the plug-in that they are shown with.
std::vector<float> Completed(const std::vector<CorvexDB::PluginParameter>& parameters,
                             const std::vector<float>& stored)
{
    std::vector<float> values = DefaultValues(parameters);
    for (std::size_t i = 0; i < std::min(values.size(), stored.size()); ++i) {
        values[i] = std::isfinite(stored[i]) ? stored[i] : values[i];
    }
    return values;
}

}  // namespace

void PluginPanel::SelectName(const std::string& name)
{
    Restore(name, {});
}

void PluginPanel::Restore(const std::string& name, const std::vector<float>& values)
{
    const int position = PositionOf(name);
    if (position == 0 && !name.empty() && name != kNoPlugin) {
        return ShowMissing(name, values);
    }
    const auto parameters = Ask(position);
    Show(position, parameters, Completed(parameters, values));
}

void PluginPanel::Display(const std::vector<float>& values)
{
    if (m_missing) {
        return ShowMissing(std::string(m_missing->name), values);
    }
    const auto parameters = Ask(m_shownPosition);
    Show(m_shownPosition, parameters, values);
    Naming(EntryAt(m_shownPosition), [&] { RefuseBeyondLimit(parameters.size()); });
}

void PluginPanel::ShowTexts(const std::vector<std::string>& texts)
{
    std::vector<float> values;
    for (const std::string& text : texts) {
        values.push_back(SingleFromText(text).value_or(NAN));
    }
    if (m_missing) {
        return ShowMissing(std::string(m_missing->name), values);
    }
    const auto parameters = Ask(m_shownPosition);
    Show(m_shownPosition, parameters, Completed(parameters, values));
}

void PluginPanel::ShowMissing(const std::string& name, const std::vector<float>& values)
{
    Missing missing{name, values};
    missing.values.resize(std::min(values.size(), kPluginParameterLimit));
    std::ranges::replace_if(
        missing.values, [](float value) { return !std::isfinite(value); }, 0.0F);
    const bool isNew = ListText() != name;
    ShowEntry(0, std::move(missing));
    ShowRows({}, {});
    if (isNew) {
        Q_EMIT PluginMissing(QString::fromStdString(name));
    }
}

std::size_t PluginPanel::ParameterCount() const
{
    return m_missing ? m_missing->values.size() : m_shownRows;
}

void PluginPanel::ReadValues(std::vector<float>& values)
{
    values.assign(kPluginParameterLimit, 0.0F);
    if (m_missing) {
        std::ranges::copy(m_missing->values, values.begin());
        return;
    }
    const PluginEntry entry = EntryAt(m_shownPosition);
    const auto parameters = AskParameters(m_plugins, entry);
    Naming(entry, [&] {
        for (std::size_t i = 0; i < std::min(parameters.size(), kPluginParameterLimit); ++i) {
            values[i] = m_rows[i]->Value(parameters[i].kind);
        }
        RefuseBeyondLimit(parameters.size());
    });
}

std::vector<float> PluginPanel::Defaults() const
{
    std::vector<float> values;
    for (std::size_t i = 0; i < m_shownRows; ++i) {
        values.push_back(m_rows[i]->Parameter().defaultValue);
    }
    return values;
}

std::vector<std::string> PluginPanel::DefaultTexts() const
{
    return TextsOf(Defaults());
}

// A text that is no number stands for the default, until the material is asked for.
std::vector<float> PluginPanel::ShownValues() const
{
    std::vector<float> values = Defaults();
    const std::vector<std::string> texts = ParameterTexts();
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = SingleFromText(texts[i]).value_or(values[i]);
    }
    return values;
}

std::vector<std::string> PluginPanel::ParameterTexts() const
{
    if (m_missing) {
        return TextsOf(m_missing->values);
    }
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < m_shownRows; ++i) {
        texts.push_back(m_rows[i]->Text());
    }
    return texts;
}

}  // namespace CorvexMaterial
