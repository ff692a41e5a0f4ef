#pragma once

#include "ProgramArguments.h"

namespace studio {

/// Writes a model as another program's. Results and problems are told as every command tells them.
[[nodiscard]] ExitCode Convert(const ConvertJob& job);

}  // namespace studio
