#include "platform/QtProcesses.h"

#include "host/Status.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <csignal>

#include <unistd.h>

namespace CorvexMaterial {

namespace {

/// What a program gets to end by itself; a renderer in the middle of a picture needs half a second.
constexpr std::chrono::milliseconds kPatience{3000};

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
        // A group of its own, so that what the program starts in turn can be ended with it.
        m_process.setChildProcessModifier([] { ::setpgid(0, 0); });
        m_process.start(QString::fromStdString(request.program), arguments);
        if (!m_process.waitForStarted()) {
            throw Error(Status::FileFailed,
                        QObject::tr("%1 cannot be started: %2")
                            .arg(QString::fromStdString(request.program), m_process.errorString())
                            .toStdString());
        }
    }

    ~QtProcess() override { End(); }

    ProcessState Wait(std::chrono::milliseconds timeout) override
    {
        if (m_process.state() != QProcess::NotRunning) {
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

    void Stop() override { End(); }

private:
    void End()
    {
        if (m_process.state() == QProcess::NotRunning) {
            return;
        }
        const auto group = static_cast<pid_t>(-m_process.processId());
        ::kill(group, SIGTERM);
        if (!m_process.waitForFinished(static_cast<int>(kPatience.count()))) {
            ::kill(group, SIGKILL);
            m_process.kill();
            m_process.waitForFinished(static_cast<int>(kPatience.count()));
        }
    }

    QProcess m_process;
};

}  // namespace

std::unique_ptr<Process> QtProcessStarter::Start(const ProcessRequest& request)
{
    return std::make_unique<QtProcess>(request);
}

}  // namespace CorvexMaterial
