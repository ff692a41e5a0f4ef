#include "raytrace/modRaytrace.h"

#include "dialogs/ErrorTexts.h"
#include "dialogs/Trap.h"
#include "platform/TemporaryFolder.h"
#include "raytrace/PreviewTarget.h"
#include "raytrace/RaytraceMessages.h"
#include "raytrace/TextureRules.h"
#include "raytrace/WorkingFolder.h"
#include "raytracers/JobEnd.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace CorvexMaterial {

namespace {

/// What every scene's exporter is given beside the aspect ratio.
constexpr float kExportConstant = 0.1F;

/// A scene may name its picture without a folder; it is then where the renderer has worked.
void MoveTo(const std::string& bitmap, const std::string& workingFolder)
{
    const QString wanted = QString::fromStdString(bitmap);
    QFile made(QString::fromStdString(workingFolder) + u'/' + QFileInfo(wanted).fileName());
    if (made.exists() && !made.rename(wanted)) {
        throw Error(Status::FileFailed, bitmap + ": " + made.errorString().toStdString());
    }
}

/// Nothing for what is no picture; whoever reads it says so.
std::optional<CorvexViewport::PixelSize> SizeOf(const std::string& bitmap)
{
    QImageReader reader(QString::fromStdString(bitmap));
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    return size.isValid() ? std::optional(CorvexViewport::PixelSize{size.width(), size.height()})
                          : std::nullopt;
}

/// Lets the host clean up after its export, whatever comes of the job.
class ExportInUse {
public:
    explicit ExportInUse(Host& host) : m_host(host) {}
    ~ExportInUse()
    {
        CleanUpQuietly(m_host.diagnostics, "the exporter has not cleaned up",
                       [this] { m_host.exporter.RaytraceEnded(); });
    }
    ExportInUse(const ExportInUse&) = delete;
    ExportInUse& operator=(const ExportInUse&) = delete;

private:
    Host& m_host;
};

}  // namespace

RaytraceOutcome modRaytrace::Render(const RaytraceJob& job,
                                    const std::function<void(const std::string& bitmap)>& read)
{
    const WorkingFolder workingFolder;
    const RaytracerRow& row = Selected();
    const JobFiles files(m_platform.temporaryFiles, m_host.diagnostics,
                         std::string(row.scene.suffix), job.afterJob);
    const ExportInUse exportInUse(m_host);
    // Renderers read settings of their own where they work: never in a folder that others share.
    const TemporaryFolder work("job");
    CorvexDB::CommandLine commandLine = Prepare(row, job, files);
    commandLine.workingFolder = work.Path();
    if (!TexturesAreTaken(row, job)) {
        m_host.raytrace.RaytraceAbandoned();
        return RaytraceOutcome::Abandoned;
    }
    const RaytraceOutcome outcome = Run(row, job, commandLine, files.Bitmap());
    if (outcome == RaytraceOutcome::Rendered) {
        read(files.Bitmap());
    }
    return outcome;
}

std::string modRaytrace::Export(const RaytraceJob& job, const JobFiles& files)
{
    const float aspect =
        static_cast<float>(job.size.width) / static_cast<float>(std::max(1, job.size.height));
    return m_host.exporter.ExportRaytraceScene(
        {files.Scene(), job.scene, aspect, kExportConstant, job.view});
}

CorvexDB::CommandLine modRaytrace::Prepare(const RaytracerRow& row, const RaytraceJob& job,
                                           const JobFiles& files)
{
    const std::string exported = Export(job, files);
    const RenderStart start = row.panelStart({ProgramOf(row), files.Scene(), exported, files.Ini(),
                                              files.Bitmap(), job.size, job.antialias},
                                             m_host.applicationState);
    if (!start.settings.empty()) {
        m_platform.temporaryFiles.Write(files.Ini(), start.settings);
    }
    for (const std::string& line : start.trace) {
        m_host.diagnostics.DebugTrace(line);
    }
    return start.command;
}

bool modRaytrace::TexturesAreTaken(const RaytracerRow& row, const RaytraceJob& job)
{
    // A flat sample leaves the shape's own textures out.
    if (job.view == CorvexSG::RaytraceView::FlatSample ||
        TexturesFit(row.scene.tiff, m_host.exporter.TexturesInUse(job.scene))) {
        return true;
    }
    ShowRule(row.scene.wrongTextures);
    return false;
}

RaytraceOutcome modRaytrace::Run(const RaytracerRow& row, const RaytraceJob& job,
                                 const CorvexDB::CommandLine& commandLine,
                                 const std::string& bitmap)
{
    try {
        // The image of an earlier job must never pass for this one's.
        m_platform.temporaryFiles.Remove(bitmap);
        JobEnd end;
        end.exitCodeTells = row.exitCodeTells;
        end.wanted = job.size;
        end.folder = m_platform.temporaryFiles.Folder();
        if (!StartAndWait(job, commandLine, bitmap, end)) {
            return RaytraceOutcome::Abandoned;
        }
        MoveTo(bitmap, commandLine.workingFolder);
        if (m_platform.temporaryFiles.HasContent(bitmap)) {
            end.picture = SizeOf(bitmap).value_or(job.size);
        }
        if (const std::string failure = FailureOf(end); !failure.empty()) {
            throw Error(Status::Failed, failure);
        }
        return RaytraceOutcome::Rendered;
    } catch (...) {
        TellFailure(Describe(std::current_exception(), commandLine.program), job.target);
        return RaytraceOutcome::Failed;
    }
}

bool modRaytrace::StartAndWait(const RaytraceJob& job, const CorvexDB::CommandLine& commandLine,
                               const std::string& bitmap, JobEnd& end)
{
    if (job.target == nullptr) {
        end.exitCode = m_host.raytrace.StartAndWait(commandLine);
        return true;
    }
    ShellStatus status = ShellStatus::Ended;
    end.exitCode = job.target->ShellWaitUpdatePreview(commandLine, bitmap, status, job.size.width,
                                                      job.size.height, true, 0);
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
