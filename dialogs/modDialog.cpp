#include "dialogs/modDialog.h"

#include "dialogs/WarningCatalogue.h"
#include "dialogs/frmDialog.h"

namespace CorvexMaterial {

modDialog::modDialog(SettingsStore& settings, CorvexDB::Diagnostics& diagnostics, QWidget* parent)
    : m_settings(settings), m_diagnostics(diagnostics), m_parent(parent)
{
}

void modDialog::ShowWarning(const WarningRequest& request)
{
    const auto stored = m_settings.Read({request.sApplicationRegistryKey, std::string(kTipsSection),
                                         request.sWarningRegistryEntry});
    if (!WarningWanted(stored)) {
        return;
    }
    frmDialog dialog(m_settings, m_diagnostics, request, m_parent);
    dialog.exec();
    dialog.Unload();
}

}  // namespace CorvexMaterial
