#pragma once

#include <QByteArray>

#include <functional>
#include <optional>
#include <span>
#include <string>

namespace studio {

/// The argument that makes the program the importing process.
inline constexpr const char* kImportArgument = "--import-model";

/// How the importing process ends when nothing crashes.
enum class ImportExit : int {
    Done = 0,
    Refused = 20,
    OutOfMemory = 21,
    NoOutput = 22,
    Misused = 23,
    TookTooLong = 24
};

/// Reads a file and packs what it holds. Errors: any.
using ContainedWork = std::function<QByteArray(const std::string& path)>;

/// Hands the file `arguments[0]` to the work and writes the answer to `arguments[1]`. Limits this
/// process's memory, time and output for good, writes the reason of a refusal to standard error,
/// returns the exit code. To be called before there is an application object: a crash in here must
/// have nothing to take along.
[[nodiscard]] int RunContained(std::span<const std::string> arguments, const ContainedWork& work);

/// The whole work of the process that imports models; its answer is the packed model.
[[nodiscard]] int RunModelImport(std::span<const std::string> arguments);

/// The above if the program was started for it, else nothing.
[[nodiscard]] std::optional<int> RunModelImportIfAsked(int argc, char** argv);

}  // namespace studio
