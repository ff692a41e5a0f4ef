#pragma once

#include "studio/app/CommandLine.h"

namespace studio {

/// Does what the command line asks for; the window's event loop included.
[[nodiscard]] ExitCode RunStudio(int& argc, char** argv, const CommandLine& line);

}  // namespace studio
