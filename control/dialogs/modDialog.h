#pragma once

#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/Export.h>
#include <CorvexMaterial/Prompts.h>
#include <CorvexMaterial/SettingsStore.h>

#include <functional>
#include <string>

class QWidget;

namespace CorvexMaterial {

/// What a warning needs to be shown and silenced.
struct WarningRequest {
    std::string sApplicationRegistryKey;  ///< application name of the settings
    std::string sWarning;                 ///< the message
    std::string sWarningRegistryEntry;    ///< the key in section "Tips"
    std::string title = {};               ///< of the window; empty = the product's name
};

/// Runs what the user's work does not hang on, such as keeping a choice: a failure is told, and the
/// work goes on.
void TellAndGoOn(Prompts& prompts, const std::function<void()>& body);

/// Shows warnings that the user may silence.
class CORVEX_EXPORT modDialog {
public:
    modDialog(SettingsStore& settings, Prompts& prompts, CorvexDB::Diagnostics& diagnostics,
              QWidget* parent);

    /// Modal; shows nothing unless the stored choice is exactly 1, which a missing one counts as.
    /// A choice that cannot be read or kept is told; what the warning is about goes on.
    void ShowWarning(const WarningRequest& request);

private:
    void Show(const WarningRequest& request);

    SettingsStore& m_settings;
    Prompts& m_prompts;
    CorvexDB::Diagnostics& m_diagnostics;
    QWidget* m_parent;
};

}  // namespace CorvexMaterial
