#pragma once

#include "LatePrompts.h"
#include <CorvexMaterial/Platform.h>
#include <CorvexMaterial/QtPlatform.h>

#include <set>

namespace studio {

/// A store that cannot be written fails on every attempt. The control's first failure goes on to
/// whoever writes, who tells the user; what was told once is let go, so that closing the window
/// does not show one box after another. The studio itself, which asks before it quits, hears of
/// each.
class ToldSettings : public CorvexMaterial::SettingsStore {
public:
    enum class Fails { Once, Always };

    /// Store and texts outlive this object.
    ToldSettings(CorvexMaterial::SettingsStore& store, std::set<std::string>& told, Fails fails)
        : m_store(store), m_told(told), m_fails(fails)
    {
    }

    std::optional<std::string> Read(const CorvexMaterial::SettingAddress& address) override;
    void Write(const CorvexMaterial::SettingAddress& address, const std::string& value) override;
    void Flush(const std::string& application) override;

private:
    CorvexMaterial::SettingsStore& m_store;
    std::set<std::string>& m_told;
    Fails m_fails;
};

/// The desktop as the studio hands it to the control.
class StudioDesktop {
public:
    StudioDesktop();

    [[nodiscard]] CorvexMaterial::Platform& Get() { return m_platform; }
    /// For the studio's own settings.
    [[nodiscard]] CorvexMaterial::SettingsStore& OwnSettings() { return m_ownSettings; }
    /// Message boxes and choosers belong to this window, which is about to be shown; what came up
    /// until now is told then.
    void SetWindow(QWidget* window);
    /// Muted, the user is asked and told nothing.
    void SetMuted(bool muted) { m_prompts.SetMuted(muted); }

private:
    CorvexMaterial::QtPlatform m_desktop;
    std::set<std::string> m_told;
    ToldSettings m_settings;
    ToldSettings m_ownSettings;
    LatePrompts m_prompts;
    CorvexMaterial::Platform m_platform;
};

}  // namespace studio
