#include "ErrorHandler.h"

#include <algorithm>
#include <utility>

namespace CorvexMaterial {

modCorvexGeneralErrorHandler::modCorvexGeneralErrorHandler(
    Prompts& prompts, CorvexDB::Diagnostics& diagnostics,
    CorvexDB::ApplicationState& applicationState)
    : m_prompts(prompts), m_diagnostics(diagnostics), m_applicationState(applicationState)
{
}

modCorvexGeneralErrorHandler::TellOnce::TellOnce(modCorvexGeneralErrorHandler& handler)
    : m_told(handler.m_told)
{
    ++m_told->depth;
}

modCorvexGeneralErrorHandler::TellOnce::~TellOnce()
{
    if (--m_told->depth == 0) {
        m_told->before = std::exchange(m_told->now, {});
    }
}

bool modCorvexGeneralErrorHandler::IsTold(const std::string& text)
{
    if (m_told->depth == 0) {
        return false;
    }
    const auto has = [&text](const std::vector<std::string>& texts) {
        return std::ranges::find(texts, text) != texts.end();
    };
    const bool told = has(m_told->before) || has(m_told->now);
    m_told->now.push_back(text);
    return told;
}

void modCorvexGeneralErrorHandler::Report(const ErrorReport& report) noexcept
{
    Trace(report);
    try {
        const std::string text = ErrorBoxText(report);
        if (IsTold(text)) {
            return;
        }
        const auto title = report.status == Status::OutOfMemory ? kBoxTitle : kErrorBoxTitle;
        m_prompts.Show(IsForUser(report) ? Message{PromptIcon::Exclamation, std::string(kBoxTitle),
                                                   report.description, text}
                                         : Message{PromptIcon::Critical, std::string(title), text});
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
