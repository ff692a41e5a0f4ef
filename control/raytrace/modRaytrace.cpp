#include "modRaytrace.h"

#include "ErrorTexts.h"
#include "PreviewTarget.h"
#include "RaytraceMessages.h"
#include "Trap.h"
#include "WorkingFolder.h"

namespace CorvexMaterial {

RaytraceOutcome modRaytrace::Render(const RaytraceJob& job,
                                    const std::function<void(const std::string& bitmap)>& read)
{
    const WorkingFolder workingFolder;
    const RaytracerRow& row = Selected();
    PreparedJob prepared(m_host, m_platform, row, ProgramOf(row), job);
    if (!prepared.TexturesAreTaken()) {
        ShowRule(row.scene.wrongTextures);
        m_host.raytrace.RaytraceAbandoned();
        return RaytraceOutcome::Abandoned;
    }
    const RaytraceOutcome outcome = Run(job, prepared);
    if (outcome == RaytraceOutcome::Rendered) {
        read(prepared.Bitmap());
    }
    return outcome;
}

std::unique_ptr<PreparedJob> modRaytrace::PrepareUnasked(const RaytraceJob& job)
{
    const WorkingFolder workingFolder;
    const RaytracerRow& row = Selected();
    const std::string program = row.rendersUnasked ? ProgramOf(row) : std::string();
    auto prepared = program.empty()
                        ? nullptr
                        : std::make_unique<PreparedJob>(m_host, m_platform, row, program, job);
    return prepared && prepared->TexturesAreTaken() ? std::move(prepared) : nullptr;
}

RaytraceOutcome modRaytrace::Run(const RaytraceJob& job, PreparedJob& prepared)
{
    try {
        // The image of an earlier job must never pass for this one's.
        m_platform.temporaryFiles.Remove(prepared.Bitmap());
        JobEnd end;
        if (!StartAndWait(job, prepared, end)) {
            return RaytraceOutcome::Abandoned;
        }
        if (const std::string failure = prepared.FailureAfter(end); !failure.empty()) {
            throw Error(Status::Failed, failure);
        }
        return RaytraceOutcome::Rendered;
    } catch (...) {
        TellFailure(Describe(std::current_exception(), prepared.Command().program), job.target);
        return RaytraceOutcome::Failed;
    }
}

bool modRaytrace::StartAndWait(const RaytraceJob& job, const PreparedJob& prepared, JobEnd& end)
{
    if (job.target == nullptr) {
        end.exitCode = m_host.raytrace.StartAndWait(prepared.Command());
        return true;
    }
    ShellStatus status = ShellStatus::Ended;
    end.exitCode = job.target->ShellWaitUpdatePreview(prepared.Command(), prepared.Bitmap(), status,
                                                      job.size.width, job.size.height, true, 0);
    end.crashed = status == ShellStatus::Crashed;
    end.messages = job.target->Messages();
    return status != ShellStatus::Cancelled;
}

void modRaytrace::ReportingFailure(const std::function<void()>& body)
{
    try {
        body();
    } catch (const ReportedError&) {
        throw;
    } catch (...) {
        const ErrorReport report = Describe(std::current_exception(), "raytraced picture");
        m_platform.prompts.Show({PromptIcon::Critical, std::string(kBoxTitle),
                                 std::string(kPreviewFailed), report.description});
    }
}

void modRaytrace::TellFailure(const ErrorReport& report, PreviewTarget* target)
{
    std::string details = report.location + ": " + report.description;
    if (target != nullptr) {
        details.append("\n\n").append(target->Messages());
    }
    m_platform.prompts.Show({PromptIcon::Critical, std::string(kBoxTitle),
                             std::string(kRaytracerFailed), std::move(details)});
}

}  // namespace CorvexMaterial
