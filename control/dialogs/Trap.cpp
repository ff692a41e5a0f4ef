#include "Trap.h"

namespace CorvexMaterial {

Status Trap::Caught(std::string_view location) const noexcept
{
    try {
        throw;
    } catch (const ReportedError& error) {
        return error.Code();
    } catch (...) {
        try {
            const ErrorReport report = Describe(std::current_exception(), location);
            m_handler.Report(report);
            return report.status;
        } catch (...) {
            // Describing an error needs memory; without any there is only the status.
            return Status::OutOfMemory;
        }
    }
}

}  // namespace CorvexMaterial
