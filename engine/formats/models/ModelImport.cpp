#include "ModelImport.h"

#include "ImportJob.h"

#include <QDeadlineTimer>

namespace studio {

namespace {

ImportFailure WaitFor(QProcess& process, const ImportProgram& program)
{
    constexpr int kLookEveryMilliseconds = 30;
    const QDeadlineTimer deadline(program.timeLimit);
    while (process.state() != QProcess::NotRunning &&
           !process.waitForFinished(kLookEveryMilliseconds)) {
        if (program.cancelled()) {
            return ImportFailure::Cancelled;
        }
        if (deadline.hasExpired()) {
            return ImportFailure::TimedOut;
        }
    }
    return ImportFailure::None;
}

}  // namespace

ImportOutcome ImportModelNow(const QString& file, const ImportProgram& program, Wanted wanted)
{
    ImportJob job(file, program, wanted);
    const ImportFailure failure = job.Start();
    return job.Outcome(failure == ImportFailure::None ? WaitFor(job.Process(), program) : failure);
}

ModelImport::ModelImport(ImportProgram program, QObject* parent)
    : QObject(parent), m_program(std::move(program))
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] { End(m_onTimeout); });
}

ModelImport::~ModelImport() = default;

void ModelImport::Start(const QString& file)
{
    Cancel();
    const quint64 run = ++m_run;
    m_job = std::make_unique<ImportJob>(file, m_program, Wanted::Model);
    // Queued: the job must not be destroyed by a slot of its own process.
    connect(
        &m_job->Process(), &QProcess::finished, this, [this, run] { Judge(run); },
        Qt::QueuedConnection);
    connect(
        &m_job->Process(), &QProcess::errorOccurred, this,
        [this, run](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) {
                Judge(run);
            }
        },
        Qt::QueuedConnection);
    const ImportFailure failure = m_job->Start();
    const bool started = failure == ImportFailure::None;
    m_onTimeout = started ? ImportFailure::TimedOut : failure;
    m_limit.start(started ? m_program.timeLimit : std::chrono::milliseconds(0));
}

void ModelImport::Cancel()
{
    End(ImportFailure::Cancelled);
}

// Answers that were queued by an earlier run find another number.
void ModelImport::Judge(quint64 run)
{
    if (run == m_run) {
        End(ImportFailure::None);
    }
}

void ModelImport::End(ImportFailure failure)
{
    if (m_job == nullptr) {
        return;
    }
    m_limit.stop();
    const ImportOutcome outcome = m_job->Outcome(failure);
    // Before the signal: its slots may show a dialog, or start the next import.
    m_job.reset();
    Q_EMIT Finished(outcome);
}

}  // namespace studio
