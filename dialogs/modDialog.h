#pragma once

#include "host/CorvexDB.h"
#include "host/Export.h"
#include "platform/SettingsStore.h"

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

/// Shows warnings that the user may silence.
class CORVEX_EXPORT modDialog {
public:
    modDialog(SettingsStore& settings, CorvexDB::Diagnostics& diagnostics, QWidget* parent);

    /// Modal; shows nothing unless the stored choice is exactly 1, which a missing one counts as.
    void ShowWarning(const WarningRequest& request);

private:
    SettingsStore& m_settings;
    CorvexDB::Diagnostics& m_diagnostics;
    QWidget* m_parent;
};

}  // namespace CorvexMaterial
