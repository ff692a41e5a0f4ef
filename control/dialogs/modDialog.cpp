#include "modDialog.h"

#include "ErrorTexts.h"
#include "frmDialog.h"
#include <CorvexMaterial/WarningCatalogue.h>

namespace CorvexMaterial {

void TellAndGoOn(Prompts& prompts, const std::function<void()>& body)
{
    try {
        body();
    } catch (...) {
        const ErrorReport report = Describe(std::current_exception(), {});
        prompts.Show({PromptIcon::Exclamation, std::string(kBoxTitle), report.description});
    }
}

modDialog::modDialog(SettingsStore& settings, Prompts& prompts, CorvexDB::Diagnostics& diagnostics,
                     QWidget* parent)
    : m_settings(settings), m_prompts(prompts), m_diagnostics(diagnostics), m_parent(parent)
{
}

void modDialog::ShowWarning(const WarningRequest& request)
{
    TellAndGoOn(m_prompts, [&] { Show(request); });
}

void modDialog::Show(const WarningRequest& request)
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
