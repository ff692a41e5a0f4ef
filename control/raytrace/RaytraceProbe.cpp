#include "RaytraceProbe.h"

namespace CorvexMaterial {

namespace {

constexpr std::chrono::milliseconds kBetweenLooks{20};

}  // namespace

RaytraceProbe::RaytraceProbe(ProcessStarter& processes, CorvexDB::Diagnostics& diagnostics)
    : m_processes(processes), m_diagnostics(diagnostics)
{
    m_look.setInterval(kBetweenLooks);
    connect(&m_look, &QTimer::timeout, this, &RaytraceProbe::Look);
}

void RaytraceProbe::Start(std::unique_ptr<PreparedJob> job)
{
    End();
    m_job = std::move(job);
    m_work.emplace(m_processes, m_job->Command());
    m_look.start();
}

void RaytraceProbe::End()
{
    m_look.stop();
    if (m_work) {
        m_work->Cancel();
        while (m_work->GoesOn(kBetweenLooks)) {
        }
    }
    m_work.reset();
    m_job.reset();
}

void RaytraceProbe::Look()
{
    std::string bitmap;
    CleanUpQuietly(m_diagnostics, "a picture that nobody asked for has failed", [&] {
        if (m_work->GoesOn(std::chrono::milliseconds{0})) {
            return;
        }
        m_look.stop();
        if (m_job->FailureAfter(m_work->End()).empty()) {
            bitmap = m_job->Bitmap();
        }
    });
    if (m_look.isActive()) {
        return;
    }
    m_work.reset();
    const std::unique_ptr<PreparedJob> done = std::move(m_job);
    Q_EMIT Rendered(bitmap);
}

}  // namespace CorvexMaterial
