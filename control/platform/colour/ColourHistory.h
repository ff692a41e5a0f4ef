#pragma once

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/SettingsStore.h>

#include <vector>

namespace CorvexMaterial {

/// The colours that the user has chosen last, of all programs with the control. They are kept in
/// the settings; a store that refuses them costs nothing else.
class ColourHistory {
public:
    static constexpr std::size_t kMost = 16;

    /// The store outlives this object.
    explicit ColourHistory(SettingsStore& settings) : m_settings(settings) {}

    /// The latest first.
    [[nodiscard]] std::vector<Colour> Colours() const;
    /// In front of the others, once.
    void Add(Colour colour);

private:
    SettingsStore& m_settings;
};

}  // namespace CorvexMaterial
