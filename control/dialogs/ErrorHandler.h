#pragma once

#include "ErrorTexts.h"
#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/Prompts.h>

#include <memory>
#include <string>
#include <vector>

namespace CorvexMaterial {

/// Tells the user about an error, once: one box, and for an unrecoverable one the offer of help.
class modCorvexGeneralErrorHandler {
    struct Told {
        std::vector<std::string> before;  ///< by the edit before this one
        std::vector<std::string> now;
        int depth = 0;
    };

public:
    /// Lives as long as an edit. What fails at every key is told at the first one, and again only
    /// after an edit without it.
    class TellOnce {
    public:
        explicit TellOnce(modCorvexGeneralErrorHandler& handler);
        ~TellOnce();
        TellOnce(const TellOnce&) = delete;
        TellOnce& operator=(const TellOnce&) = delete;

    private:
        std::shared_ptr<Told> m_told;  // the host may close the control while a box is open
    };

    modCorvexGeneralErrorHandler(Prompts& prompts, CorvexDB::Diagnostics& diagnostics,
                                 CorvexDB::ApplicationState& applicationState);

    /// Never throws: what cannot be shown or traced is let go, the caller still returns its status.
    void Report(const ErrorReport& report) noexcept;

private:
    /// Takes note of it.
    [[nodiscard]] bool IsTold(const std::string& text);
    void Trace(const ErrorReport& report) noexcept;
    void OfferHelp();

    Prompts& m_prompts;
    CorvexDB::Diagnostics& m_diagnostics;
    CorvexDB::ApplicationState& m_applicationState;
    std::shared_ptr<Told> m_told = std::make_shared<Told>();
};

}  // namespace CorvexMaterial
