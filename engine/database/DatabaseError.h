#pragma once

#include <string>

namespace studio {

/// Errors with status FileFailed, as a person reads them: what it is and the file, by whose ending
/// it tells, then the cause, which is a sentence without its first capital and full stop.
[[noreturn]] void ThrowDatabaseError(const std::string& path, const std::string& cause);

}  // namespace studio
