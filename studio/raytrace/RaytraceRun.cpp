#include "studio/raytrace/RaytraceRun.h"

#include "host/Status.h"
#include "platform/QtRegularFile.h"
#include "studio/raytrace/StudioSceneExporter.h"

#include <QDir>
#include <QRegularExpression>

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

QString PovRayFault(const std::string& messages)
{
    static const QRegularExpression kFault(
        QStringLiteral("(?:Parse Error|Fatal error|Cannot|cannot allocate)[^\\n\\r]*"));
    const QString text = QString::fromStdString(messages);
    for (auto match = kFault.globalMatch(text); match.hasNext();) {
        const QString line = match.next().captured(0).simplified();
        if (!line.contains(QStringLiteral("user configuration file"))) {
            return line;
        }
    }
    return {};
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

QString RenderManFault(const std::string& messages)
{
    const std::string_view line = CorvexMaterial::ErrorLineIn(messages);
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())).simplified();
}

struct RaytracerRow {
    QLatin1String scene;
    QLatin1String picture;
    QStringList (*arguments)(const Frame& frame, int antialias);
    QString (*fault)(const std::string& messages);
    bool faultsExitWell;  ///< with the exit code 0
};

const RaytracerRow& RowOf(CorvexDB::Raytracer kind)
{
    static const RaytracerRow kPovRay{QLatin1String("scene.pov"), QLatin1String("scene.png"),
                                      PovRayArguments, PovRayFault, false};
    static const RaytracerRow kRenderMan{QLatin1String("scene.rib"), QLatin1String("scene.tif"),
                                         RenderManArguments, RenderManFault, true};
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
    const RaytracerRow& row = RowOf(m_kind);
    const QImage picture = PictureIn(FilePath(row.picture));
    const QString fault = row.fault(m_progress.Messages());
    if (m_cancelled) {
        Give({});
    } else if (m_process.exitStatus() != QProcess::NormalExit) {
        Give(tr("The raytracer crashed."));
    } else if (m_process.exitCode() == 0 && !picture.isNull() &&
               (fault.isEmpty() || !row.faultsExitWell)) {
        m_folder.reset();
        Q_EMIT Finished(picture.convertToFormat(QImage::Format_RGB32));
    } else {
        Give(fault.isEmpty() ? tr("The raytracer made no picture.")
                             : tr("The raytracer says: %1").arg(fault));
    }
}

QString RaytraceRun::FilePath(QLatin1String name) const
{
    return QString::fromStdString(m_folder->Path()) + u'/' + name;
}

void RaytraceRun::Give(const QString& message)
{
    m_folder.reset();
    Q_EMIT Failed(message);
}

}  // namespace studio
