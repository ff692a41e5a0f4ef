#include "SavedState.h"

#include "PanelLayout.h"
#include "SavedStateOrders.h"
#include <CorvexMaterial/AttributeText.h>
#include <CorvexMaterial/NumberText.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <utility>

namespace CorvexMaterial {

namespace {

constexpr std::string_view kTextureRows = "TextureRows";
constexpr std::string_view kMaterialRows = "MaterialRows";
constexpr std::string_view kMaterialLibraryPanel = "MaterialLibraryPanel";
constexpr std::string_view kTextureLibraryPanel = "TextureLibraryPanel";

/// A key per plug-in, by its name: the parameters' own keys tell no plug-in from another, and the
/// state at the end of a run goes there too.
constexpr const char* kPluginDefaultsSection = "PluginDefaults";
/// Stands for a parameter whose text is no number.
constexpr const char* kNoNumber = "-";

std::string KeyOfElement(std::string_view stem, std::size_t index)
{
    return std::string(stem) + std::to_string(index);
}

/// NaN for what is no number.
std::vector<float> NumbersIn(const std::string& line)
{
    std::istringstream stored(line);
    std::vector<float> numbers;
    for (std::string text; stored >> text;) {
        numbers.push_back(SingleFromText(text).value_or(std::numeric_limits<float>::quiet_NaN()));
    }
    return numbers;
}

}  // namespace

SavedState::SavedState(SettingsStore& store, std::function<std::string()> applicationName)
    : m_store(store), m_applicationName(std::move(applicationName))
{
}

void SavedState::ShowAll(const std::vector<ShownText>& texts, AttributeTarget& target)
{
    for (const ShownText& shown : texts) {
        target.Show(shown.attribute, shown.text);
    }
}

void SavedState::Load(AttributeTarget& target)
{
    std::vector<ShownText> texts;
    for (const Attribute attribute : SavedStateOrders::kLoadOrder) {
        const AttributeRow& row = RowOf(attribute);
        texts.push_back({attribute, ReadCanonical(attribute, row.currentKey, row.factoryText)});
    }
    ShowAll(texts, target);
}

void SavedState::SaveAtTerminate(AttributeTarget& source)
{
    WriteAll(SavedStateOrders::kTerminateOrder, &AttributeRow::currentKey, source);
    Flush();
}

void SavedState::Remember(AttributeTarget& source)
{
    WriteAll(SavedStateOrders::kRememberOrder, &AttributeRow::userKey, source);
    WritePluginDefaults(source);
    Flush();
}

void SavedState::ResetToUser(AttributeTarget& target)
{
    // Everything is read before anything is shown, but for the plug-in, which alone tells what
    // parameters there are to read.
    const std::string plugin = target.TextOf(Attribute::Plugin);
    const std::vector<std::string> parameters = target.PluginParameterTexts();
    UserDefaults defaults;
    try {
        defaults = ReadUserDefaults(target);
    } catch (...) {
        target.Show(Attribute::Plugin, plugin);
        target.ShowPluginParameters(parameters);
        throw;
    }
    ShowAll(defaults.texts, target);
    target.ShowPluginParameters(defaults.pluginParameters);
    target.ShowCustomFields(defaults.customFields);
}

SavedState::UserDefaults SavedState::ReadUserDefaults(AttributeTarget& target)
{
    UserDefaults read;
    for (const Attribute attribute : SavedStateOrders::kUserResetOrder) {
        if (attribute == Attribute::PluginParameters) {
            read.pluginParameters = UserPluginParameters(target);
        } else if (attribute == Attribute::CustomFields) {
            read.customFields = ReadCustomFields();
        } else {
            std::string text =
                ReadCanonical(attribute, RowOf(attribute).userKey, FactoryText(attribute));
            if (attribute == Attribute::Plugin) {
                target.Show(attribute, text);
            } else {
                read.texts.push_back({attribute, std::move(text)});
            }
        }
    }
    return read;
}

TouchedRows SavedState::RowsOfUserDefaults()
{
    return RowsOf(SavedStateOrders::kUserResetOrder);
}

std::optional<EditedValue> SavedState::Remembered(const TouchedRow& row, const std::string& plugin)
{
    const auto& order = SavedStateOrders::kUserResetOrder;
    if (std::ranges::find(order, row.attribute) == order.end()) {
        return std::nullopt;
    }
    if (row.attribute == Attribute::PluginParameters) {
        const auto line = plugin.empty() ? std::nullopt : Read(plugin, kPluginDefaultsSection);
        return line ? std::optional<EditedValue>(NumbersIn(*line)) : std::nullopt;
    }
    const std::string_view key = RowOf(row.attribute).userKey;
    if (row.attribute == Attribute::CustomFields) {
        return Read(KeyOfElement(key, row.element));
    }
    const auto text = Read(key);
    CorvexDB::udtMaterial record;
    const bool isKnown =
        text &&
        SetText(
            record, row.attribute,
            CanonicalText(row.attribute, *text).value_or(std::string(FactoryText(row.attribute))));
    return isKnown ? std::optional(ValueOf(row.attribute, 0, record)) : std::nullopt;
}

void SavedState::ResetToFactory(AttributeTarget& target)
{
    for (const AttributeRow& row : AttributeRows()) {
        if (row.attribute == Attribute::PluginParameters) {
            target.ShowPluginParameters(target.PluginParameterDefaults());
        } else if (row.attribute == Attribute::CustomFields) {
            target.ShowCustomFields({});
        } else if (row.attribute != Attribute::TextureLibrary &&
                   row.attribute != Attribute::MaterialLibrary) {
            target.Show(row.attribute, std::string(row.factoryText));
        }
    }
}

SavedLayout SavedState::LoadLayout()
{
    SavedLayout layout;
    layout.textureRows = ReadRows(kTextureRows);
    layout.materialRows = ReadRows(kMaterialRows);
    layout.materialLibraryPanel = ReadPanelFlag(kMaterialLibraryPanel);
    layout.textureLibraryPanel = ReadPanelFlag(kTextureLibraryPanel);
    layout.materialPanel = ReadPanelFlag(kMaterialPanelKey);
    layout.previewBackground = ReadColour(kBackgroundMaterialKey, layout.previewBackground);
    layout.materialBackground = ReadColour(kBackgroundMaterialKey, layout.materialBackground);
    layout.textureBackground = ReadColour(kBackgroundTextureKey, layout.textureBackground);
    return layout;
}

void SavedState::SaveLayout(const SavedLayout& layout)
{
    Write(kMaterialPanelKey, TextOfFlag(layout.materialPanel));
    Write(kTextureLibraryPanel, TextOfFlag(layout.textureLibraryPanel));
    Write(kTextureRows, TextOfWholeNumber(layout.textureRows));
    Write(kMaterialLibraryPanel, TextOfFlag(layout.materialLibraryPanel));
    Write(kMaterialRows, TextOfWholeNumber(std::max(layout.materialRows, 1)));
    Flush();
}

void SavedState::RememberPluginParameters(AttributeTarget& source)
{
    WritePluginParameters(source);
    WritePluginDefaults(source);
    Flush();
}

std::vector<std::string> SavedState::UserPluginParameters(AttributeTarget& target)
{
    const std::string plugin = target.SelectedPlugin();
    std::vector<std::string> texts = target.PluginParameterDefaults();
    if (plugin.empty()) {
        return texts;
    }
    const auto stored = NumbersIn(Read(plugin, kPluginDefaultsSection).value_or(""));
    for (std::size_t i = 0; i < stored.size(); ++i) {
        if (i == texts.size()) {
            texts.emplace_back();  // of a plug-in that is missing nobody knows how many it has
        }
        texts[i] = std::isfinite(stored[i]) ? TextOfSingle(stored[i]) : texts[i];
    }
    return texts;
}

std::optional<std::string> SavedState::Read(std::string_view key, const char* section)
{
    return m_store.Read({m_applicationName(), section, std::string(key)});
}

template <typename Part>
void SavedState::KeepingFailure(Part&& part)
{
    try {
        part();
    } catch (...) {
        m_failure = m_failure ? m_failure : std::current_exception();
    }
}

void SavedState::Write(std::string_view key, const std::string& text, const char* section)
{
    KeepingFailure([&] { m_store.Write({m_applicationName(), section, std::string(key)}, text); });
}

void SavedState::Flush()
{
    KeepingFailure([this] { m_store.Flush(m_applicationName()); });
    if (const auto failure = std::exchange(m_failure, nullptr)) {
        std::rethrow_exception(failure);
    }
}

std::string SavedState::ReadCanonical(Attribute attribute, std::string_view key,
                                      std::string_view defaultText)
{
    const std::string text = Read(key).value_or(std::string(defaultText));
    return CanonicalText(attribute, text).value_or(std::string(FactoryText(attribute)));
}

int SavedState::ReadRows(std::string_view key)
{
    return std::clamp(WholeNumberFromText(Read(key).value_or("")).value_or(1), 1, kMostRows);
}

bool SavedState::ReadPanelFlag(std::string_view key)
{
    return FlagFromText(Read(key).value_or("")).value_or(false);
}

Colour SavedState::ReadColour(std::string_view key, Colour defaultColour)
{
    return WholeNumberFromText(Read(key).value_or("")).value_or(defaultColour) & kWhite;
}

CustomFieldValues SavedState::ReadCustomFields()
{
    CustomFieldValues values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = Read(KeyOfElement(RowOf(Attribute::CustomFields).userKey, i)).value_or("");
    }
    return values;
}

void SavedState::WriteAll(std::span<const Attribute> order, std::string_view AttributeRow::*key,
                          AttributeTarget& source)
{
    for (const Attribute attribute : order) {
        KeepingFailure([&] {
            if (attribute == Attribute::PluginParameters) {
                WritePluginParameters(source);
            } else if (attribute == Attribute::CustomFields) {
                WriteCustomFields(source);
            } else {
                Write(RowOf(attribute).*key, source.TextOf(attribute));
            }
        });
    }
}

void SavedState::WritePluginParameters(AttributeTarget& source)
{
    const std::vector<std::string> texts = source.PluginParameterTexts();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        Write(KeyOfElement(RowOf(Attribute::PluginParameters).currentKey, i), texts[i]);
    }
}

void SavedState::WritePluginDefaults(AttributeTarget& source)
{
    std::string line;
    for (const std::string& text : source.PluginParameterTexts()) {
        const auto value = SingleFromText(text);
        line.append(line.empty() ? "" : " ").append(value ? TextOfSingle(*value) : kNoNumber);
    }
    if (!line.empty()) {
        Write(source.SelectedPlugin(), line, kPluginDefaultsSection);
    }
}

void SavedState::WriteCustomFields(AttributeTarget& source)
{
    const CustomFieldValues texts = source.CustomFieldTexts();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        Write(KeyOfElement(RowOf(Attribute::CustomFields).userKey, i), texts[i]);
    }
}

}  // namespace CorvexMaterial
