#pragma once

#include "ImportAllowance.h"

#include <optional>

namespace studio {

/// What the importing process is asked for. Both ways the same file gives the same materials.
enum class Wanted { Model, Materials };

/// The argument that makes the program the importing process.
[[nodiscard]] const char* ArgumentFor(Wanted wanted);

/// How the importing process ends when nothing crashes.
enum class ImportExit : int {
    Done = 0,
    Refused = 20,
    OutOfMemory = 21,
    NoOutput = 22,
    Misused = 23,
    TookTooLong = kTookTooLong
};

/// The work of the importing process if the program was started for it, else nothing: reads the
/// file behind the argument and writes the answer to the file behind that. Limits this process's
/// memory, time and output for good, writes the reason of a refusal to standard error, returns the
/// exit code. To be called before there is an application object: a crash in here must have nothing
/// to take along.
[[nodiscard]] std::optional<int> RunImportIfAsked(int argc, char** argv);

}  // namespace studio
