#pragma once

#include "dialogs/ErrorTexts.h"
#include "host/CorvexDB.h"
#include "platform/Prompts.h"

namespace CorvexMaterial {

/// Tells the user about an error, once: one box, and for an unrecoverable one the offer of help.
class modCorvexGeneralErrorHandler {
public:
    modCorvexGeneralErrorHandler(Prompts& prompts, CorvexDB::Diagnostics& diagnostics,
                                 CorvexDB::ApplicationState& applicationState);

    /// Never throws: what cannot be shown or traced is let go, the caller still returns its status.
    void Report(const ErrorReport& report) noexcept;

private:
    void Trace(const ErrorReport& report) noexcept;
    void OfferHelp();

    Prompts& m_prompts;
    CorvexDB::Diagnostics& m_diagnostics;
    CorvexDB::ApplicationState& m_applicationState;
};

}  // namespace CorvexMaterial
