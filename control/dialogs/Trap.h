#pragma once

#include "ErrorHandler.h"
#include <CorvexMaterial/Status.h>

#include <exception>
#include <string_view>
#include <type_traits>

namespace CorvexMaterial {

/// Carries a status that has been reported already through an outer member.
class ReportedError : public Error {
public:
    explicit ReportedError(Status status) : Error(status, "already reported") {}
};

/// For a member that calls another published member: ends the caller without a second report.
inline void Require(Status status)
{
    if (status != Status::Success) {
        throw ReportedError(status);
    }
}

/// The border of the control: runs a body, lets nothing out, reports a failure once.
class Trap {
public:
    explicit Trap(modCorvexGeneralErrorHandler& handler) : m_handler(handler) {}

    /// The body returns nothing or a status; a returned status is handed on without a report.
    template <typename Body>
    Status operator()(std::string_view location, Body&& body) const noexcept
    {
        try {
            if constexpr (std::is_void_v<std::invoke_result_t<Body>>) {
                body();
                return Status::Success;
            } else {
                return body();
            }
        } catch (...) {
            return Caught(location);
        }
    }

private:
    Status Caught(std::string_view location) const noexcept;

    modCorvexGeneralErrorHandler& m_handler;
};

}  // namespace CorvexMaterial
