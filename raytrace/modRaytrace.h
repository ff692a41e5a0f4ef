#pragma once

#include "host/Host.h"
#include "platform/Platform.h"
#include "raytrace/JobFiles.h"
#include "raytracers/Raytracers.h"

#include <functional>
#include <string>

class QWidget;

namespace CorvexMaterial {

class PreviewTarget;
struct ErrorReport;
struct JobEnd;

/// One picture to be rendered.
struct RaytraceJob {
    CorvexSG::Scene& scene;
    CorvexSG::RaytraceView view = CorvexSG::RaytraceView::Scene;
    CorvexViewport::PixelSize size;
    std::int32_t antialias = 0;  ///< 0 off, 1 depth 2, any other value depth 4
    /// Waits and shows progress; null leaves both to the host.
    PreviewTarget* target = nullptr;
    AfterJob afterJob = AfterJob::DeleteBitmap;
};

enum class RaytraceOutcome {
    Rendered,
    Failed,     ///< and the user has been told
    Abandoned,  ///< by a rule, of which he has been told, or by his own Cancel
};

/// Raytracer jobs: the check that comes before, and the run of one.
class modRaytrace {
public:
    /// The host selects one of the rows, which outlive this object.
    modRaytrace(Host& host, Platform& platform, QWidget* parent,
                std::span<const RaytracerRow> rows = Raytracers());

    /// Whether the selected raytracer can be used. When it cannot, the user has been told and
    /// offered help.
    [[nodiscard]] bool CheckRaytracer();

    /// Has the host write the scene, runs the raytracer and hands the image's path to the reader;
    /// then removes the job's files. The working folder is the old one afterwards. Errors: those of
    /// the export and of the reader.
    RaytraceOutcome Render(const RaytraceJob& job,
                           const std::function<void(const std::string& bitmap)>& read);

    /// Runs what prepares and shows a raytraced picture; tells the user when it fails. What was
    /// reported before goes on to the caller.
    void ReportingFailure(const std::function<void()>& body);

private:
    [[nodiscard]] const RaytracerRow& Selected();
    [[nodiscard]] SettingAddress LocationOf(const RaytracerRow& row);
    [[nodiscard]] std::string ProgramOf(const RaytracerRow& row);
    [[nodiscard]] bool AskForProgram(const RaytracerRow& row);
    [[nodiscard]] bool ChooseProgram(const RaytracerRow& row);
    void ShowHint(const RaytracerRow& row);
    [[nodiscard]] bool Ask(std::string_view question);
    void ShowRule(std::string_view text);

    [[nodiscard]] CorvexDB::CommandLine Prepare(const RaytracerRow& row, const RaytraceJob& job,
                                                const JobFiles& files);
    [[nodiscard]] std::string Export(const RaytraceJob& job, const JobFiles& files);
    [[nodiscard]] bool TexturesAreTaken(const RaytracerRow& row, const RaytraceJob& job);
    [[nodiscard]] RaytraceOutcome Run(const RaytracerRow& row, const RaytraceJob& job,
                                      const CorvexDB::CommandLine& commandLine,
                                      const std::string& bitmap);
    /// False when the user cancelled.
    [[nodiscard]] bool StartAndWait(const RaytraceJob& job, const CorvexDB::CommandLine& command,
                                    const std::string& bitmap, JobEnd& end);
    void TellFailure(const ErrorReport& report, PreviewTarget* target);

    Host& m_host;
    Platform& m_platform;
    QWidget* m_parent;
    std::span<const RaytracerRow> m_rows;
};

}  // namespace CorvexMaterial
