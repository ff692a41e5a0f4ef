#pragma once

#include "ProgramArguments.h"

namespace studio {

/// The first thing that a program of ours does. In a child process that only reads a foreign file,
/// that is all: the exit code then.
[[nodiscard]] std::optional<int> BeginProgram(int argc, char** argv);

/// The arguments behind the program's name.
[[nodiscard]] QStringList ArgumentsOf(int argc, char** argv);

/// Does what needs no window: every action but OpenWindow. Makes its own application object.
[[nodiscard]] ExitCode RunCommand(int& argc, char** argv, const CommandLine& line);

}  // namespace studio
