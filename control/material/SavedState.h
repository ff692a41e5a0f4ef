#pragma once

#include "TouchedRows.h"
#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/MaterialRecord.h>
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/SettingsNames.h>
#include <CorvexMaterial/SettingsStore.h>

#include <array>
#include <exception>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace CorvexMaterial {

using CustomFieldValues = std::array<std::string, CorvexDB::kCustomFieldCount>;

/// The panel, as the saved state sees it.
class AttributeTarget {
public:
    virtual ~AttributeTarget() = default;
    /// As shown now; never asked of a group.
    virtual std::string TextOf(Attribute attribute) = 0;
    /// The text is always one that `CanonicalText` gives for the attribute.
    virtual void Show(Attribute attribute, const std::string& canonicalText) = 0;
    /// Empty when there is none.
    virtual std::string SelectedPlugin() = 0;
    /// Of the plug-in now selected, one text per parameter.
    virtual std::vector<std::string> PluginParameterTexts() = 0;
    virtual std::vector<std::string> PluginParameterDefaults() = 0;
    virtual void ShowPluginParameters(const std::vector<std::string>& texts) = 0;
    virtual CustomFieldValues CustomFieldTexts() = 0;
    virtual void ShowCustomFields(const CustomFieldValues& texts) = 0;
};

struct SavedLayout {
    int textureRows = 1;
    int materialRows = 1;
    bool materialLibraryPanel = false;
    bool textureLibraryPanel = false;
    bool materialPanel = false;
    Colour materialBackground = 0xEEFFEE;
    Colour textureBackground = kWhite;
    Colour previewBackground = 0xEEFFEE;  ///< kept under the material browser's key
};

/// Moves the panel's state to and from the settings store. The application name is asked before
/// each access of the store. What the host, the store or the panel throws passes through; a flow
/// that writes throws its first error after it has written all that can be written.
class SavedState {
public:
    /// The store outlives this object.
    SavedState(SettingsStore& store, std::function<std::string()> applicationName);

    /// Shows the state of the last run. A text that does not convert gives the factory value.
    /// After an error of the store nothing was shown.
    void Load(AttributeTarget& target);
    void SaveAtTerminate(AttributeTarget& source);

    /// Writes the user's own defaults.
    void Remember(AttributeTarget& source);
    /// Shows the user's own defaults. The preview primitive, apply-relative, the raytrace type and
    /// the colour pattern are written by `Remember` and yet keep their values here. After an error
    /// of the store the panel shows what it showed.
    void ResetToUser(AttributeTarget& target);
    [[nodiscard]] static TouchedRows RowsOfUserDefaults();
    /// Of one row, the parameters being those of this plug-in. Nothing where none was written, and
    /// for what `ResetToUser` leaves alone.
    [[nodiscard]] std::optional<EditedValue> Remembered(const TouchedRow& row,
                                                        const std::string& plugin);
    /// Shows the factory value of every attribute but the two libraries; the store is not asked.
    void ResetToFactory(AttributeTarget& target);

    /// Rows are at least 1.
    SavedLayout LoadLayout();
    /// Writes panels and rows, the backgrounds never. The texture rows go out as they are, the
    /// material rows as at least 1.
    void SaveLayout(const SavedLayout& layout);

    void RememberPluginParameters(AttributeTarget& source);
    /// One text per parameter of the selected plug-in: the one remembered for this plug-in, else
    /// its default.
    std::vector<std::string> UserPluginParameters(AttributeTarget& target);

private:
    struct ShownText {
        Attribute attribute;
        std::string text;
    };
    struct UserDefaults {
        std::vector<ShownText> texts;
        std::vector<std::string> pluginParameters;
        CustomFieldValues customFields;
    };

    static void ShowAll(const std::vector<ShownText>& texts, AttributeTarget& target);
    /// Shows the plug-in on its way.
    UserDefaults ReadUserDefaults(AttributeTarget& target);
    std::optional<std::string> Read(std::string_view key,
                                    const char* section = kApplicationSection);
    /// One that fails does not keep the ones after it from being written: `Flush` throws for it.
    void Write(std::string_view key, const std::string& text,
               const char* section = kApplicationSection);
    void Flush();
    template <typename Part>
    void KeepingFailure(Part&& part);
    std::string ReadCanonical(Attribute attribute, std::string_view key,
                              std::string_view defaultText);
    int ReadRows(std::string_view key);
    bool ReadPanelFlag(std::string_view key);
    Colour ReadColour(std::string_view key, Colour defaultColour);
    CustomFieldValues ReadCustomFields();
    void WriteAll(std::span<const Attribute> order, std::string_view AttributeRow::*key,
                  AttributeTarget& source);
    void WritePluginParameters(AttributeTarget& source);
    void WritePluginDefaults(AttributeTarget& source);
    void WriteCustomFields(AttributeTarget& source);

    SettingsStore& m_store;
    std::function<std::string()> m_applicationName;
    std::exception_ptr m_failure;
};

}  // namespace CorvexMaterial
