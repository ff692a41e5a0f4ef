// How long a job takes beside the bare POV-Ray run of its scene, and how fast a large model is
// written.

#include "studio/raytrace/PovRayScene.h"
#include "studio/raytrace/RibScene.h"
#include "studio/raytrace/StudioSceneExporter.h"
#include "studio/scene/ParametricMesh.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>

namespace {

using Seconds = std::chrono::duration<double>;

double SecondsOf(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return Seconds(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

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

bool Run(const QString& program, const QStringList& arguments, const QString& folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    return process.waitForFinished(60000) && process.exitCode() == 0;
}

void CompareJob()
{
    constexpr int kRuns = 9;
    const QTemporaryDir folder;
    const studio::RaytraceScene scene = SceneOf(studio::SphereMesh(1.0F));
    const QString base = folder.filePath("~CVX1");
    QFile ini(base + ".ini");
    if (!ini.open(QIODevice::WriteOnly)) {
        return;
    }
    ini.write(("Input_File_Name=" + base + ".pov\nWidth=320\nHeight=240\nOutput_File_Type=S\n" +
               "Quality=11\nAntialias=off\nDisplay=off\nOutput_File_Name=" + base + ".bmp\n")
                  .toLocal8Bit());
    ini.close();
    std::vector<double> jobs;
    std::vector<double> bare;
    for (int i = 0; i < kRuns; ++i) {
        jobs.push_back(SecondsOf([&] {
            studio::WriteRaytraceScene(base + ".pov", scene, {}, studio::ImagesBeside(base));
            Run(LAUNCHER_PROGRAM, {"/exit", "/nr", base + ".ini"}, folder.path());
        }));
        bare.push_back(SecondsOf([&] {
            Run("povray",
                {"+I~CVX1.pov", "+O~CVX1.bmp", "+FB", "+W320", "+H240", "+Q11", "-A", "-D"},
                folder.path());
        }));
    }
    std::printf("job at 320x240      %6.3f s, bare POV-Ray %6.3f s, ratio %.3f\n", Median(jobs),
                Median(bare), Median(jobs) / Median(bare));
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
        for (int i = 0; i < 3; ++i) {
            times.push_back(SecondsOf(
                [&] { studio::WriteRaytraceScene(file, scene, {}, studio::ImagesBeside(file)); }));
        }
        const double megabytes = static_cast<double>(QFile(file).size()) / 1.0e6;
        std::printf("%s of %.0f triangles: %.1f MB in %.3f s, %.0f MB/s\n", name, triangles,
                    megabytes, Median(times), megabytes / Median(times));
    }
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    CompareJob();
    MeasureExport();
    return 0;
}
