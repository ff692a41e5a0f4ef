#pragma once

#include "JobEnd.h"
#include "JobFiles.h"
#include "Raytracers.h"
#include "TemporaryFolder.h"
#include <CorvexMaterial/Host.h>
#include <CorvexMaterial/Platform.h>

#include <string>

namespace CorvexMaterial {

class PreviewTarget;

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

/// A job up to the start of its program, and what is left to do when that has ended. Whatever comes
/// of it, its files go with this object, and the host is told that it is over.
class PreparedJob {
public:
    /// Has the host write the scene. Errors: those of the export.
    PreparedJob(Host& host, Platform& platform, const RaytracerRow& row, const std::string& program,
                const RaytraceJob& job);

    [[nodiscard]] const CorvexDB::CommandLine& Command() const { return m_command; }
    [[nodiscard]] std::string Bitmap() const { return m_files.Bitmap(); }
    /// Whether the raytracer reads the textures of the scene.
    [[nodiscard]] bool TexturesAreTaken() const { return m_texturesAreTaken; }
    /// Why there is no picture now that the program has ended; empty when there is one.
    [[nodiscard]] std::string FailureAfter(JobEnd end);

private:
    /// Lets the host clean up after its export.
    class ExportInUse {
    public:
        explicit ExportInUse(Host& host) : m_host(host) {}
        ~ExportInUse();
        ExportInUse(const ExportInUse&) = delete;
        ExportInUse& operator=(const ExportInUse&) = delete;

    private:
        Host& m_host;
    };

    [[nodiscard]] CorvexDB::CommandLine Prepare(Host& host, const std::string& program,
                                                const RaytraceJob& job);

    Platform& m_platform;
    const RaytracerRow& m_row;
    JobFiles m_files;
    ExportInUse m_exportInUse;
    /// Renderers read settings of their own where they work: never in a folder that others share.
    TemporaryFolder m_work{"job"};
    CorvexViewport::PixelSize m_size;
    CorvexDB::CommandLine m_command;
    bool m_texturesAreTaken;
};

}  // namespace CorvexMaterial
