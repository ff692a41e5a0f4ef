#include "dialogs/ErrorHandler.h"

namespace CorvexMaterial {

modCorvexGeneralErrorHandler::modCorvexGeneralErrorHandler(
    Prompts& prompts, CorvexDB::Diagnostics& diagnostics,
    CorvexDB::ApplicationState& applicationState)
    : m_prompts(prompts), m_diagnostics(diagnostics), m_applicationState(applicationState)
{
}

void modCorvexGeneralErrorHandler::Report(const ErrorReport& report) noexcept
{
    Trace(report);
    try {
        m_prompts.Show({PromptIcon::Critical, std::string(kErrorBoxTitle), ErrorBoxText(report)});
        if (IsUnrecoverable(report)) {
            OfferHelp();
        }
    } catch (...) {
        // The desktop itself failed; there is nobody left to tell.
        return;
    }
}

void modCorvexGeneralErrorHandler::Trace(const ErrorReport& report) noexcept
{
    try {
        m_diagnostics.DebugTrace(DebugDataText(report));
    } catch (...) {
        // The trace may be what failed in the first place; the box still goes out.
        return;
    }
}

void modCorvexGeneralErrorHandler::OfferHelp()
{
    if (m_prompts.AskYesNo(
            {PromptIcon::Critical, std::string(kErrorBoxTitle), std::string(kInternetQuestion)})) {
        m_applicationState.OpenWebSite(CorvexDB::WebSite::Support);
    }
}

}  // namespace CorvexMaterial
