#pragma once

#include "SavedState.h"
#include "Testing.h"
#include <CorvexMaterial/Status.h>

namespace CorvexMaterial {

/// Keeps the keys in the order of their use, those of other sections than the usual one with the
/// section before them; fails at the n-th access if told so.
class LoggingStore : public SettingsStore {
public:
    static std::string KeyOf(const SettingAddress& address)
    {
        return address.section == "Application" ? address.key : address.section + '/' + address.key;
    }

    std::optional<std::string> Read(const SettingAddress& address) override
    {
        reads.push_back(KeyOf(address));
        Access(address.application);
        const auto found = values.find(KeyOf(address));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    void Write(const SettingAddress& address, const std::string& value) override
    {
        EXPECT_FALSE(isFlushed) << address.key;
        writes.push_back(KeyOf(address));
        Access(address.application);
        values[KeyOf(address)] = value;
    }

    void Flush(const std::string& application) override
    {
        EXPECT_FALSE(isFlushed);
        Access(application);
        isFlushed = true;
    }

    std::map<std::string, std::string> values;
    std::vector<std::string> reads;
    std::vector<std::string> writes;
    std::vector<std::string> applications;
    bool isFlushed = false;
    std::size_t failingAccess = 0;  ///< counted from 1, 0 = none

private:
    void Access(const std::string& application)
    {
        applications.push_back(application);
        if (applications.size() == failingAccess) {
            throw Error(Status::FileFailed, "settings");
        }
    }
};

/// A panel that holds texts; its plug-in "Marble" has two parameters, no other has any.
class TextPanel : public AttributeTarget {
public:
    std::string TextOf(Attribute attribute) override { return texts[attribute]; }

    void Show(Attribute attribute, const std::string& canonicalText) override
    {
        texts[attribute] = canonicalText;
        shown.emplace_back(attribute, canonicalText);
        if (attribute == Attribute::Plugin) {
            parameters = PluginParameterDefaults();
        }
    }

    std::string SelectedPlugin() override { return texts[Attribute::Plugin]; }
    std::vector<std::string> PluginParameterTexts() override { return parameters; }

    std::vector<std::string> PluginParameterDefaults() override
    {
        return texts[Attribute::Plugin] == "Marble" ? std::vector<std::string>{"0.5", "3"}
                                                    : std::vector<std::string>{};
    }

    void ShowPluginParameters(const std::vector<std::string>& newTexts) override
    {
        parameters = newTexts;
    }

    CustomFieldValues CustomFieldTexts() override { return customFields; }
    void ShowCustomFields(const CustomFieldValues& newTexts) override { customFields = newTexts; }

    std::map<Attribute, std::string> texts;
    std::vector<std::pair<Attribute, std::string>> shown;
    std::vector<std::string> parameters;
    CustomFieldValues customFields;
};

/// The application's name changes with every question, so that a stale one is noticed.
class SavedStateFixture : public ::testing::Test {
protected:
    void TearDown() override
    {
        for (std::size_t i = 0; i < store.applications.size(); ++i) {
            EXPECT_EQ(store.applications[i], "Studio" + std::to_string(i + 1));
        }
    }

    LoggingStore store;
    TextPanel panel;
    int questions = 0;
    SavedState state{store, [this] { return "Studio" + std::to_string(++questions); }};
};

}  // namespace CorvexMaterial
