#pragma once

#include "platform/Platform.h"
#include "platform/QtPlatform.h"
#include "studio/app/LatePrompts.h"

#include <set>

namespace studio {

/// A store that cannot be written fails on every attempt. The first failure goes on to whoever
/// writes, who tells the user; the same one later is let go, so that closing the window does not
/// show one box after another.
class OnceFailingSettings : public CorvexMaterial::SettingsStore {
public:
    /// The store outlives this object.
    explicit OnceFailingSettings(CorvexMaterial::SettingsStore& store) : m_store(store) {}

    std::optional<std::string> Read(const CorvexMaterial::SettingAddress& address) override;
    void Write(const CorvexMaterial::SettingAddress& address, const std::string& value) override;
    void Flush(const std::string& application) override;

private:
    CorvexMaterial::SettingsStore& m_store;
    std::set<std::string> m_told;
};

/// The desktop as the studio hands it to the control.
class StudioDesktop {
public:
    StudioDesktop();

    [[nodiscard]] CorvexMaterial::Platform& Get() { return m_platform; }
    /// Message boxes and choosers belong to this window, which is about to be shown; what came up
    /// until now is told then.
    void SetWindow(QWidget* window);

private:
    CorvexMaterial::QtPlatform m_desktop;
    OnceFailingSettings m_settings;
    LatePrompts m_prompts;
    CorvexMaterial::Platform m_platform;
};

}  // namespace studio
