#include "PreparedJob.h"

#include "TextureRules.h"
#include <CorvexMaterial/Status.h>

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

}  // namespace

PreparedJob::ExportInUse::~ExportInUse()
{
    CleanUpQuietly(m_host.diagnostics, "the exporter has not cleaned up",
                   [this] { m_host.exporter.RaytraceEnded(); });
}

PreparedJob::PreparedJob(Host& host, Platform& platform, const RaytracerRow& row,
                         const std::string& program, const RaytraceJob& job)
    : m_platform(platform), m_row(row), m_files(platform.temporaryFiles, host.diagnostics,
                                                std::string(row.scene.suffix), job.afterJob),
      m_exportInUse(host), m_size(job.size), m_command(Prepare(host, program, job)),
      // A flat sample leaves the shape's own textures out.
      m_texturesAreTaken(job.view == CorvexSG::RaytraceView::FlatSample ||
                         TexturesFit(row.scene.tiff, host.exporter.TexturesInUse(job.scene)))
{
}

CorvexDB::CommandLine PreparedJob::Prepare(Host& host, const std::string& program,
                                           const RaytraceJob& job)
{
    const float aspect =
        static_cast<float>(job.size.width) / static_cast<float>(std::max(1, job.size.height));
    const std::string exported = host.exporter.ExportRaytraceScene(
        {m_files.Scene(), job.scene, aspect, kExportConstant, job.view});
    RenderStart start = m_row.panelStart({program, m_files.Scene(), exported, m_files.Ini(),
                                          m_files.Bitmap(), job.size, job.antialias},
                                         host.applicationState);
    if (!start.settings.empty()) {
        m_platform.temporaryFiles.Write(m_files.Ini(), start.settings);
    }
    for (const std::string& line : start.trace) {
        host.diagnostics.DebugTrace(line);
    }
    start.command.workingFolder = m_work.Path();
    return start.command;
}

std::string PreparedJob::FailureAfter(JobEnd end)
{
    end.output = m_row.output;
    end.wanted = m_size;
    end.folder = m_platform.temporaryFiles.Folder();
    MoveTo(Bitmap(), m_command.workingFolder);
    if (m_platform.temporaryFiles.HasContent(Bitmap())) {
        end.picture = SizeOf(Bitmap()).value_or(m_size);
    }
    return FailureOf(end);
}

}  // namespace CorvexMaterial
