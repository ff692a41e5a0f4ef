#include "RenderWait.h"

#include "RaytracerAtWork.h"
#include "RenderProgressDialog.h"

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
    RaytracerAtWork work(m_processes, commandLine);
    const bool cancelled = WaitBehindProgress(work);
    const JobEnd end = work.End();
    m_messages = end.messages;
    status = cancelled     ? ShellStatus::Cancelled
             : end.crashed ? ShellStatus::Crashed
                           : ShellStatus::Ended;
    return cancelled ? -1 : end.exitCode;
}

bool RenderWait::WaitBehindProgress(RaytracerAtWork& work)
{
    RenderProgressDialog box(m_over);
    bool cancelled = false;
    while (!cancelled && work.GoesOn(kSlice)) {
        box.ShowPercent(work.Percent());
        cancelled = box.HandleInput();
    }
    return cancelled;
}

}  // namespace CorvexMaterial
