#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace CorvexMaterial {

struct ProcessRequest {
    std::string program;  ///< path, started without a shell
    std::vector<std::string> arguments;
    std::string workingFolder;  ///< empty = the current one
};

enum class ProcessState { Running, Exited, Crashed };

/// A started program. Destroying a running one stops it.
class Process {
public:
    virtual ~Process() = default;
    /// Waits at most this long, without handling user input; with no time at all it only looks.
    virtual ProcessState Wait(std::chrono::milliseconds timeout) = 0;
    /// Of an exited program.
    virtual int ExitCode() = 0;
    /// What it has printed on standard output since the last call.
    virtual std::string TakeOutput() = 0;
    /// The same for standard error.
    virtual std::string TakeErrorOutput() = 0;
    /// Asks it to end, and ends it by force when it does not.
    virtual void Stop() = 0;
    /// The same without waiting until it has ended, which `Wait` tells.
    virtual void Cancel() { Stop(); }
};

class ProcessStarter {
public:
    virtual ~ProcessStarter() = default;
    /// Never null. Errors: FileFailed when the program cannot be started.
    virtual std::unique_ptr<Process> Start(const ProcessRequest& request) = 0;
};

}  // namespace CorvexMaterial
