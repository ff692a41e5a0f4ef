#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace CorvexMaterial {

/// Result of every published member. 0 is success. After any other value nothing has half changed;
/// a value that was shown stays when only the refresh after it failed.
enum class Status : std::int32_t {
    Success = 0,
    NotAvailable,         ///< this build of the control does not offer the member
    InvalidArgument,      ///< an argument is outside its documented range
    ConversionFailed,     ///< a text is not the number that is asked for
    SubscriptOutOfRange,  ///< an array has fewer elements than needed
    Overflow,             ///< a number does not fit its type
    FileFailed,           ///< a file is missing, unreadable or refused; the message names it
    GraphicsFailed,       ///< the 3D device cannot be created or was lost
    OutOfMemory,
    Failed,  ///< anything else, a host's own exception included
};

/// Thrown by the control, and by a host or platform that wants its failure classified. A host may
/// throw any other exception too; the control reports it as Status::Failed.
class Error : public std::runtime_error {
public:
    Error(Status status, const std::string& description)
        : std::runtime_error(Whole(description)), m_status(status)
    {
    }

    [[nodiscard]] Status Code() const { return m_status; }

private:
    /// A zero in a name, as a damaged file may have it, must not end the description.
    static std::string Whole(std::string text)
    {
        for (auto zero = text.find('\0'); zero != std::string::npos; zero = text.find('\0', zero)) {
            text.replace(zero, 1, "\\0");
        }
        return text;
    }

    Status m_status;
};

}  // namespace CorvexMaterial
