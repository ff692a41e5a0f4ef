#pragma once

#include "PreparedJob.h"

#include <functional>
#include <memory>
#include <span>
#include <string>

class QWidget;

namespace CorvexMaterial {

struct ErrorReport;

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

    /// A job for a `RaytraceProbe`, without a word to the user. Null when the raytracer is none
    /// that renders unasked, is not there or does not read the scene's textures. Errors: those of
    /// the export.
    [[nodiscard]] std::unique_ptr<PreparedJob> PrepareUnasked(const RaytraceJob& job);

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

    [[nodiscard]] RaytraceOutcome Run(const RaytraceJob& job, PreparedJob& prepared);
    /// False when the user cancelled.
    [[nodiscard]] bool StartAndWait(const RaytraceJob& job, const PreparedJob& prepared,
                                    JobEnd& end);
    void TellFailure(const ErrorReport& report, PreviewTarget* target);

    Host& m_host;
    Platform& m_platform;
    QWidget* m_parent;
    std::span<const RaytracerRow> m_rows;
};

}  // namespace CorvexMaterial
