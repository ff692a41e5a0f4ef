// How long the panel's job takes beside the bare POV-Ray run of its scene, and how fast a large
// model is written.

#include "PanelJob.h"
#include "ParametricMesh.h"
#include "StudioSceneExporter.h"
#include "Timing.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <ctime>

namespace {

using namespace CorvexBenchmark;

studio::RaytraceScene SceneOf(std::shared_ptr<const studio::Mesh> mesh)
{
    studio::FrameItem item;
    item.mesh = std::move(mesh);
    item.material = std::make_shared<CorvexDB::udtMaterial>();
    studio::RaytraceScene scene;
    scene.frame.items.push_back(std::move(item));
    scene.frame.camera = studio::Framed(scene.frame.camera, scene.frame.items);
    scene.frame.width = 320;
    scene.frame.height = 240;
    return scene;
}

bool RunPovRay(const QString& folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start("povray",
                  {"+Ipanel.pov", "+Opanel.bmp", "+FB", "+W320", "+H240", "+Q11", "-A", "-D"});
    return process.waitForFinished(60000) && process.exitCode() == 0;
}

void CompareJob()
{
    constexpr int kRuns = 15;
    const QTemporaryDir folder;
    qputenv("temp", QFile::encodeName(folder.path()));
    qputenv("CORVEX_POVRAY_LAUNCHER", LAUNCHER_PROGRAM);
    PanelJob panel({320, 240}, folder.filePath("panel.pov"));
    std::vector<double> jobs;
    std::vector<double> bare;
    std::vector<double> ratios;
    for (int i = 0; i < kRuns; ++i) {
        jobs.push_back(SecondsOf([&] { panel.Run(); }));
        bool rendered = false;
        bare.push_back(SecondsOf([&] { rendered = RunPovRay(folder.path()); }));
        if (!rendered) {
            std::printf("POV-Ray has not rendered the panel's scene\n");
            return;
        }
        ratios.push_back(jobs.back() / bare.back());
    }
    std::printf("job at 320x240      %6.3f s, bare POV-Ray %6.3f s, ratio %.3f\n", MedianOf(jobs),
                MedianOf(bare), MedianOf(ratios));
}

void MeasureExport()
{
    const auto wave = [](float u, float v) {
        return QVector3D(10.0F * u, std::sin(40.0F * u) * std::cos(30.0F * v), -10.0F * v);
    };
    const studio::RaytraceScene scene = SceneOf(studio::ParametricMesh(wave, {1000, 500}));
    const double triangles = static_cast<double>(scene.frame.items[0].mesh->indices.size()) / 3.0;
    const QTemporaryDir folder;
    for (const char* name : {"model.pov", "model.rib"}) {
        const QString file = folder.filePath(QLatin1String(name));
        std::vector<double> times;
        std::vector<double> processorTimes;
        for (int i = 0; i < 3; ++i) {
            const std::clock_t begin = std::clock();
            times.push_back(SecondsOf(
                [&] { studio::WriteRaytraceScene(file, scene, {}, studio::ImagesBeside(file)); }));
            processorTimes.push_back(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
        }
        const double megabytes = static_cast<double>(QFile(file).size()) / 1.0e6;
        // The second figure does not count what else the machine has to do.
        std::printf("%s of %.0f triangles: %.1f MB in %.3f s, %.0f MB/s (processor: %.0f MB/s)\n",
                    name, triangles, megabytes, MedianOf(times), megabytes / MedianOf(times),
                    megabytes / MedianOf(processorTimes));
    }
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    const QApplication application(argc, argv);
    CompareJob();
    MeasureExport();
    return 0;
}
