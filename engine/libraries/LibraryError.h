#pragma once

#include <string>

namespace studio {

/// Errors with status FileFailed, as a person reads them: the file, then the cause, which is a
/// sentence without its first capital and full stop.
[[noreturn]] void ThrowLibraryError(const std::string& path, const std::string& cause);

}  // namespace studio
