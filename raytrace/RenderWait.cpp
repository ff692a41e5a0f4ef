#include "raytrace/RenderWait.h"

#include "raytrace/RenderProgress.h"
#include "raytrace/RenderProgressDialog.h"

namespace CorvexMaterial {

namespace {

/// How long a click on Cancel may wait at most.
constexpr std::chrono::milliseconds kSlice{30};

}  // namespace

RenderWait::RenderWait(ProcessStarter& processes, QWidget& over)
    : m_processes(processes), m_over(over)
{
}

std::int32_t RenderWait::ShellWaitUpdatePreview(const CorvexDB::CommandLine& commandLine,
                                                const std::string& /*outputBitmap*/,
                                                ShellStatus& status, std::int32_t /*width*/,
                                                std::int32_t /*height*/, bool /*updatePreview*/,
                                                std::int32_t /*options*/)
{
    m_messages.clear();
    const std::unique_ptr<Process> process =
        m_processes.Start({commandLine.program, commandLine.arguments, commandLine.workingFolder});
    bool cancelled = false;
    const ProcessState state = WaitBehindProgress(*process, cancelled);
    if (cancelled) {
        process->Stop();
        status = ShellStatus::Cancelled;
        return -1;
    }
    status = state == ProcessState::Crashed ? ShellStatus::Crashed : ShellStatus::Ended;
    return state == ProcessState::Crashed ? -1 : process->ExitCode();
}

ProcessState RenderWait::WaitBehindProgress(Process& process, bool& cancelled)
{
    RenderProgress progress;
    RenderProgressDialog box(m_over);
    ProcessState state = process.Wait(kSlice);
    while (state == ProcessState::Running && !cancelled) {
        progress.Feed(process.TakeErrorOutput());
        progress.Feed(process.TakeOutput());
        box.ShowPercent(progress.Percent());
        cancelled = box.HandleInput();
        state = cancelled ? state : process.Wait(kSlice);
    }
    progress.Feed(process.TakeErrorOutput());
    progress.Feed(process.TakeOutput());
    m_messages = progress.Messages();
    return state;
}

}  // namespace CorvexMaterial
