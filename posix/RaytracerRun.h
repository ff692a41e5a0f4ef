#pragma once

#include <string>

namespace CorvexMaterial {

/// Starts the program on a settings file in the current folder, named without its path, and waits
/// for it. It inherits the standard streams, so that its progress is seen as it comes. A request to
/// end (SIGTERM, SIGINT, SIGHUP) ends it first, and our own end all that it has started.
/// Returns its exit code, or 128 and the signal's number. Errors: std::system_error when it cannot
/// be started.
[[nodiscard]] int RunRaytracer(const std::string& program, const std::string& settingsName);

/// From now on the signals above are kept for `RunRaytracer`, even those that come before it. Call
/// it first of all.
void KeepSignals();

}  // namespace CorvexMaterial
