#pragma once

#include "LibraryCommandLine.h"

namespace studio {

/// Does the job. Whether all of it went well; what did not was printed. Needs an application
/// object.
[[nodiscard]] bool RunLibraryJob(const LibraryJob& job);

}  // namespace studio
