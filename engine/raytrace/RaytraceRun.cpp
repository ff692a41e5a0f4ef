#include "RaytraceRun.h"

#include "QtRegularFile.h"
#include "StudioSceneExporter.h"
#include <CorvexMaterial/Status.h>

namespace studio {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks{10};

/// Null when the raytracer left none.
QImage PictureIn(const QString& path)
{
    try {
        return CorvexMaterial::ReadPicture(path);
    } catch (const CorvexMaterial::Error&) {
        return {};
    }
}

}  // namespace

RaytraceRun::RaytraceRun(CorvexMaterial::ProcessStarter& processes, QObject* parent)
    : QObject(parent), m_processes(processes)
{
    m_watch.setInterval(kBetweenLooks);
    m_watch.setParent(this);
    connect(&m_watch, &QTimer::timeout, this, &RaytraceRun::Look);
}

void RaytraceRun::Start(const RaytracerProgram& program, const RaytraceScene& scene,
                        const RaytraceImages::Lookup& textures, int antialias)
{
    const CorvexMaterial::RaytracerRow& row = *program.writer->raytracer;
    m_folder.emplace("render");
    m_task = {};
    m_task.program = program.path.toStdString();
    m_task.scene = m_task.exported = "scene." + std::string(row.scene.suffix);
    m_task.picture = "scene." + std::string(row.scene.pictureSuffix);
    m_task.size = {scene.frame.width, scene.frame.height};
    m_task.antialias = antialias;
    const QString file = QString::fromStdString(m_folder->FilePath(m_task.scene));
    WriteRaytraceScene(file, scene, textures,
                       ImagesBeside(file, CorvexMaterial::Lifetime::Temporary), *program.writer);
    m_output = row.output;
    m_cancelled = false;
    CorvexDB::CommandLine command = row.plainStart(m_task);
    command.workingFolder = m_folder->Path();
    m_work = std::make_unique<CorvexMaterial::RaytracerAtWork>(m_processes, command);
    m_watch.start();
}

void RaytraceRun::Cancel()
{
    m_cancelled = true;
    if (m_work) {
        m_work->Cancel();
    }
}

void RaytraceRun::Look()
{
    const bool goesOn = m_work->GoesOn({});
    if (const auto percent = m_work->Percent()) {
        Q_EMIT Progress(*percent);
    }
    if (!goesOn) {
        Conclude();
    }
}

void RaytraceRun::Conclude()
{
    m_watch.stop();
    const QImage picture = PictureIn(QString::fromStdString(m_folder->FilePath(m_task.picture)));
    CorvexMaterial::JobEnd end = m_work->End();
    end.output = m_output;
    end.wanted = m_task.size;
    end.folder = m_folder->Path();
    if (!picture.isNull()) {
        end.picture = {picture.width(), picture.height()};
    }
    const QString failure = QString::fromStdString(CorvexMaterial::FailureOf(end));
    m_work.reset();
    m_folder.reset();
    if (m_cancelled || !failure.isEmpty()) {
        Q_EMIT Failed(m_cancelled ? QString() : failure);
    } else {
        Q_EMIT Finished(picture.convertToFormat(QImage::Format_RGB32));
    }
}

}  // namespace studio
