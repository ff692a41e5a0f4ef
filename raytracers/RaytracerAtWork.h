#pragma once

#include "JobEnd.h"
#include "Raytracers.h"
#include "RenderProgress.h"
#include <CorvexMaterial/Processes.h>

#include <chrono>
#include <memory>
#include <optional>

namespace CorvexMaterial {

/// A raytracer that renders: started, watched, cancelled and told how it ended, whoever waits for
/// it. It ends with this object.
class RaytracerAtWork {
public:
    /// Errors: FileFailed when it cannot be started.
    RaytracerAtWork(ProcessStarter& processes, const CorvexDB::CommandLine& command);

    /// Waits at most this long; whether it goes on.
    [[nodiscard]] bool GoesOn(std::chrono::milliseconds patience);
    /// 0 to 100, once it has said how far it is.
    [[nodiscard]] std::optional<int> Percent() const { return m_progress.Percent(); }
    /// Asks it to end, and does not wait until it has.
    void Cancel() { m_process->Cancel(); }

    /// Once it has ended: its code, and what it printed at its end.
    [[nodiscard]] JobEnd End();

private:
    std::unique_ptr<Process> m_process;
    RenderProgress m_progress;
    ProcessState m_state = ProcessState::Running;
};

}  // namespace CorvexMaterial
