#include "QtProcesses.h"

#include "ProcessLeash.h"
#include "SearchPath.h"
#include <CorvexMaterial/Status.h>

#include <QDir>
#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <optional>

namespace CorvexMaterial {

namespace {

/// Longer than the leash leaves a program to end by itself; a renderer in the middle of a picture
/// needs half a second.
constexpr std::chrono::milliseconds kPatience{5000};

/// A bare name is looked for where programs are, never where one happens to work.
QString ProgramNamed(const QString& name)
{
    if (QDir::isAbsolutePath(name)) {
        return name;
    }
    const QStringList folders =
        QString::fromStdString(AbsoluteEntries(qgetenv("PATH").toStdString()))
            .split(u':', Qt::SkipEmptyParts);
    QString found = name.contains(u'/') || folders.isEmpty()
                        ? QString()
                        : QStandardPaths::findExecutable(name, folders);
    if (found.isEmpty()) {
        throw Error(Status::FileFailed,
                    QObject::tr("%1 is no program that can be found").arg(name).toStdString());
    }
    return found;
}

class QtProcess final : public Process {
public:
    explicit QtProcess(const ProcessRequest& request)
    {
        QStringList arguments;
        for (const std::string& argument : request.arguments) {
            arguments << QString::fromStdString(argument);
        }
        m_process.setWorkingDirectory(QString::fromStdString(request.workingFolder));
        // A program that asks a question must not wait for an answer for ever.
        m_process.setStandardInputFile(QProcess::nullDevice());
        m_process.setChildProcessModifier([this] { m_leash->HoldThisProcess(); });
        m_process.start(ProgramNamed(QString::fromStdString(request.program)), arguments);
        if (!m_process.waitForStarted()) {
            throw Error(Status::FileFailed,
                        QObject::tr("%1 cannot be started: %2")
                            .arg(QString::fromStdString(request.program), m_process.errorString())
                            .toStdString());
        }
    }

    ~QtProcess() override { QtProcess::Stop(); }

    ProcessState Wait(std::chrono::milliseconds timeout) override
    {
        if (m_process.state() != QProcess::NotRunning && timeout.count() > 0) {
            QEventLoop loop;
            QObject::connect(&m_process, &QProcess::finished, &loop, &QEventLoop::quit);
            QTimer::singleShot(timeout, &loop, &QEventLoop::quit);
            loop.exec(QEventLoop::ExcludeUserInputEvents);
        }
        if (m_process.state() != QProcess::NotRunning) {
            return ProcessState::Running;
        }
        return m_process.exitStatus() == QProcess::NormalExit ? ProcessState::Exited
                                                              : ProcessState::Crashed;
    }

    int ExitCode() override { return m_process.exitCode(); }

    std::string TakeOutput() override { return m_process.readAllStandardOutput().toStdString(); }

    std::string TakeErrorOutput() override
    {
        return m_process.readAllStandardError().toStdString();
    }

    void Stop() override
    {
        Cancel();
        if (m_process.state() != QProcess::NotRunning &&
            !m_process.waitForFinished(static_cast<int>(kPatience.count()))) {
            m_process.kill();
            m_process.waitForFinished(static_cast<int>(kPatience.count()));
        }
    }

    void Cancel() override { m_leash.reset(); }

private:
    /// Gone when the program has ended or is to end.
    std::optional<ProcessLeash> m_leash{std::in_place};
    QProcess m_process;
};

}  // namespace

std::unique_ptr<Process> QtProcessStarter::Start(const ProcessRequest& request)
{
    return std::make_unique<QtProcess>(request);
}

}  // namespace CorvexMaterial
