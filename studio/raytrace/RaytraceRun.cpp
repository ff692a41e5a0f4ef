#include "studio/raytrace/RaytraceRun.h"

#include "host/Status.h"
#include "platform/QtRegularFile.h"
#include "raytrace/JobEnd.h"
#include "studio/raytrace/StudioSceneExporter.h"

#include <QDir>

namespace studio {
namespace {

/// Longer than the leash leaves the program to end by itself.
constexpr int kPatienceMilliseconds = 5000;

QStringList PovRayArguments(const Frame& frame, int antialias)
{
    QStringList arguments{QStringLiteral("+Iscene.pov"),
                          QStringLiteral("+Oscene.png"),
                          QStringLiteral("+FN"),
                          QStringLiteral("+W%1").arg(frame.width),
                          QStringLiteral("+H%1").arg(frame.height),
                          QStringLiteral("+Q11"),
                          QStringLiteral("-D")};
    if (antialias == 0) {
        arguments << QStringLiteral("-A");
    } else {
        arguments << QStringLiteral("+A0.1") << QStringLiteral("+R%1").arg(antialias == 1 ? 2 : 4);
    }
    return arguments;
}

QStringList RenderManArguments(const Frame& frame, int /*antialias*/)
{
    return {QStringLiteral("-res"), QString::number(frame.width), QString::number(frame.height),
            QStringLiteral("scene.rib")};
}

/// Null when the raytracer left none.
QImage PictureIn(const QString& path)
{
    try {
        return CorvexMaterial::ReadPicture(path);
    } catch (const CorvexMaterial::Error&) {
        return {};
    }
}

struct RaytracerRow {
    QLatin1String scene;
    QLatin1String picture;
    QStringList (*arguments)(const Frame& frame, int antialias);
};

const RaytracerRow& RowOf(CorvexDB::Raytracer kind)
{
    static const RaytracerRow kPovRay{QLatin1String("scene.pov"), QLatin1String("scene.png"),
                                      PovRayArguments};
    static const RaytracerRow kRenderMan{QLatin1String("scene.rib"), QLatin1String("scene.tif"),
                                         RenderManArguments};
    return kind == CorvexDB::Raytracer::RenderMan ? kRenderMan : kPovRay;
}

}  // namespace

RaytraceRun::RaytraceRun(QObject* parent) : QObject(parent)
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([this] { m_leash->HoldThisProcess(); });
    connect(&m_process, &QProcess::readyRead, this, &RaytraceRun::ReadProgress);
    connect(&m_process, &QProcess::finished, this, &RaytraceRun::Conclude);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            Give(tr("%1 cannot be started: %2").arg(m_process.program(), m_process.errorString()));
        }
    });
}

RaytraceRun::~RaytraceRun()
{
    m_process.disconnect(this);
    m_leash.reset();
    if (m_process.state() != QProcess::NotRunning &&
        !m_process.waitForFinished(kPatienceMilliseconds)) {
        m_process.kill();
        m_process.waitForFinished(kPatienceMilliseconds);
    }
}

void RaytraceRun::Start(const RaytracerProgram& program, const RaytraceScene& scene,
                        const RaytraceImages::Lookup& textures, int antialias)
{
    m_kind = program.kind;
    const RaytracerRow& row = RowOf(m_kind);
    m_folder.emplace("render");
    const QString file = FilePath(row.scene);
    WriteRaytraceScene(file, scene, textures,
                       ImagesBeside(file, CorvexMaterial::Lifetime::Temporary));
    m_size = {scene.frame.width, scene.frame.height};
    m_progress = {};
    m_cancelled = false;
    m_leash.emplace();
    m_process.setWorkingDirectory(QString::fromStdString(m_folder->Path()));
    m_process.start(program.path, row.arguments(scene.frame, antialias));
}

void RaytraceRun::Cancel()
{
    m_cancelled = true;
    m_leash.reset();
}

void RaytraceRun::ReadProgress()
{
    m_progress.Feed(m_process.readAll().toStdString());
    if (const auto percent = m_progress.Percent()) {
        Q_EMIT Progress(*percent);
    }
}

void RaytraceRun::Conclude()
{
    m_leash.reset();
    ReadProgress();
    const QImage picture = PictureIn(FilePath(RowOf(m_kind).picture));
    CorvexMaterial::JobEnd end;
    end.raytracer = m_kind;
    end.crashed = m_process.exitStatus() != QProcess::NormalExit;
    end.exitCode = m_process.exitCode();
    end.messages = m_progress.Messages();
    end.wanted = {m_size.width(), m_size.height()};
    end.folder = m_folder->Path();
    if (!picture.isNull()) {
        end.picture = {picture.width(), picture.height()};
    }
    const std::string failure = CorvexMaterial::FailureOf(end);
    if (m_cancelled || !failure.empty()) {
        Give(m_cancelled ? QString() : QString::fromStdString(failure));
        return;
    }
    m_folder.reset();
    Q_EMIT Finished(picture.convertToFormat(QImage::Format_RGB32));
}

QString RaytraceRun::FilePath(QLatin1String name) const
{
    return QString::fromStdString(m_folder->Path()) + u'/' + name;
}

void RaytraceRun::Give(const QString& message)
{
    m_leash.reset();
    m_folder.reset();
    Q_EMIT Failed(message);
}

}  // namespace studio
