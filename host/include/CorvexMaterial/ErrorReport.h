#pragma once

#include <CorvexMaterial/Status.h>

#include <exception>
#include <new>
#include <string>
#include <string_view>

namespace CorvexMaterial {

/// What there is to tell of an exception.
struct ErrorReport {
    Status status = Status::Failed;
    std::string description;
    std::string location;  ///< the member or handler in which it arose
};

/// Never fails for want of a known type: whatever is no `Error` and no memory shortage is Failed.
[[nodiscard]] inline ErrorReport Describe(const std::exception_ptr& exception,
                                          std::string_view location)
{
    const std::string where(location);
    try {
        std::rethrow_exception(exception);
    } catch (const Error& error) {
        const std::string description = error.what();
        const bool lacksText = error.Code() == Status::GraphicsFailed && description.empty();
        return {error.Code(), lacksText ? "Unable to create Direct3D Device" : description, where};
    } catch (const std::bad_alloc&) {
        return {Status::OutOfMemory, {}, where};
    } catch (const std::exception& error) {
        return {Status::Failed, error.what(), where};
    } catch (...) {
        return {Status::Failed, "Unknown error", where};
    }
}

}  // namespace CorvexMaterial
