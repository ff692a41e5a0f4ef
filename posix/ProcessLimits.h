#pragma once

#include <string_view>

namespace CorvexMaterial {

/// For a process that reads what may be hostile: so much memory and so large a file from now on,
/// its memory is nobody's to read, and it ends with its starter.
void ContainThisProcess();

/// After so many seconds of processor time in all this process says why on standard error and ends
/// with this code. May be called again.
void EndAfter(unsigned seconds, std::string_view complaint, int exitCode);

}  // namespace CorvexMaterial
