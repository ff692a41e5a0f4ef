#pragma once

#include <string>

namespace launcher {

/// What the names of this process's own files begin with.
[[nodiscard]] std::string OwnPrefix();

/// Removes from the current folder what launchers that were killed have left there.
void RemoveLeftovers();

}  // namespace launcher
