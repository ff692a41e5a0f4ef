#include "studio/raytrace/PovRayRun.h"

#include "host/Status.h"
#include "studio/raytrace/StudioSceneExporter.h"

#include <QDir>
#include <QRegularExpression>
#include <QTimer>

#include <csignal>

#include <sys/prctl.h>

namespace studio {
namespace {

constexpr qsizetype kKeptWords = 8000;
constexpr int kPatienceMilliseconds = 3000;

QStringList ArgumentsOf(const Frame& frame, int antialias)
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

}  // namespace

QString FaultIn(const QString& messages)
{
    static const QRegularExpression kFault(
        QStringLiteral("(?:Parse Error|Fatal error|Cannot|cannot allocate)[^\\n\\r]*"));
    QString fault;
    for (auto match = kFault.globalMatch(messages); match.hasNext();) {
        const QString line = match.next().captured(0).simplified();
        if (!line.contains(QStringLiteral("user configuration file")) && fault.isEmpty()) {
            fault = line;
        }
    }
    return fault;
}

PovRayRun::PovRayRun(QObject* parent) : QObject(parent)
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    connect(&m_process, &QProcess::readyRead, this, &PovRayRun::ReadProgress);
    connect(&m_process, &QProcess::finished, this, &PovRayRun::Conclude);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            Give(tr("%1 cannot be started: %2").arg(m_process.program(), m_process.errorString()));
        }
    });
}

PovRayRun::~PovRayRun()
{
    m_process.disconnect(this);
    if (m_process.state() != QProcess::NotRunning) {
        m_process.terminate();
        if (!m_process.waitForFinished(kPatienceMilliseconds)) {
            m_process.kill();
            m_process.waitForFinished(kPatienceMilliseconds);
        }
    }
}

void PovRayRun::Start(const QString& program, const RaytraceScene& scene,
                      const RaytraceImages::Lookup& textures, int antialias)
{
    m_folder.emplace(QDir::tempPath() + QStringLiteral("/corvex-render-XXXXXX"));
    if (!m_folder->isValid()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    tr("No folder for the picture can be made in %1: %2")
                                        .arg(QDir::tempPath(), m_folder->errorString())
                                        .toStdString());
    }
    const QString file = m_folder->filePath(QStringLiteral("scene.pov"));
    WriteRaytraceScene(file, scene, textures, ImagesBeside(file));
    m_words.clear();
    m_cancelled = false;
    m_process.setWorkingDirectory(m_folder->path());
    m_process.start(program, ArgumentsOf(scene.frame, antialias));
}

void PovRayRun::Cancel()
{
    m_cancelled = true;
    m_process.terminate();
    QTimer::singleShot(kPatienceMilliseconds, &m_process, &QProcess::kill);
}

void PovRayRun::ReadProgress()
{
    m_words = (m_words + QString::fromUtf8(m_process.readAll())).right(kKeptWords);
    static const QRegularExpression kShare(QStringLiteral("\\((\\d+)%\\)"));
    const qsizetype last = m_words.lastIndexOf(kShare);
    if (last >= 0) {
        Q_EMIT Progress(kShare.match(m_words, last).captured(1).toInt());
    }
}

void PovRayRun::Conclude()
{
    ReadProgress();
    const QImage picture(m_folder->filePath(QStringLiteral("scene.png")));
    if (m_cancelled) {
        Give({});
    } else if (m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0 &&
               !picture.isNull()) {
        m_folder.reset();
        Q_EMIT Finished(picture.convertToFormat(QImage::Format_RGB32));
    } else if (m_process.exitStatus() != QProcess::NormalExit) {
        Give(tr("POV-Ray crashed."));
    } else {
        const QString fault = FaultIn(m_words);
        Give(fault.isEmpty() ? tr("POV-Ray made no picture.") : tr("POV-Ray: %1").arg(fault));
    }
}

void PovRayRun::Give(const QString& message)
{
    m_folder.reset();
    Q_EMIT Failed(message);
}

}  // namespace studio
