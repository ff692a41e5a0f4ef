#include "RaytracerAtWork.h"

namespace CorvexMaterial {

RaytracerAtWork::RaytracerAtWork(ProcessStarter& processes, const CorvexDB::CommandLine& command)
    : m_process(processes.Start({command.program, command.arguments, command.workingFolder}))
{
}

bool RaytracerAtWork::GoesOn(std::chrono::milliseconds patience)
{
    m_state = m_process->Wait(patience);
    m_progress.Feed(m_process->TakeErrorOutput());
    m_progress.Feed(m_process->TakeOutput());
    return m_state == ProcessState::Running;
}

JobEnd RaytracerAtWork::End()
{
    JobEnd end;
    end.crashed = m_state == ProcessState::Crashed;
    end.exitCode = m_state == ProcessState::Exited ? m_process->ExitCode() : -1;
    end.messages = m_progress.Messages();
    return end;
}

}  // namespace CorvexMaterial
