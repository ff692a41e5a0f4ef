#include "Household.h"

#include <QDirIterator>

namespace LongTest {
namespace {

/// From then on it ends as it does when the user quits.
bool CatchesTermination(const QString& status)
{
    const QByteArray text = CorvexTest::ContentOf(status);
    const QByteArray caught = text.mid(text.indexOf("SigCgt:") + 7).trimmed().split('\n').front();
    return (caught.toULongLong(nullptr, 16) >> (SIGTERM - 1) & 1U) != 0;
}

}  // namespace

Household::Household() : m_environment(QProcessEnvironment::systemEnvironment())
{
    struct Variable {
        const char* name;
        const char* folder;
    };
    for (const auto& [name, folder] :
         std::initializer_list<Variable>{{"HOME", "home"},
                                         {"XDG_CONFIG_HOME", "home/config"},
                                         {"XDG_DATA_HOME", "home/data"},
                                         {"XDG_STATE_HOME", "home/state"},
                                         {"XDG_CACHE_HOME", "home/cache"},
                                         {"XDG_RUNTIME_DIR", "run"},
                                         {"TMPDIR", "temp"},
                                         {"temp", "temp"},
                                         {"PWD", "work"}}) {
        QDir().mkpath(PathOf(folder));
        m_environment.insert(name, PathOf(folder));
    }
    QFile::setPermissions(PathOf("run"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

std::vector<std::string> Household::FilesIn(const QString& name) const
{
    const QDir folder(PathOf(name));
    std::vector<std::string> files;
    QDirIterator all(folder.path(),
                     QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        files.push_back(folder.relativeFilePath(all.next()).toStdString());
    }
    std::ranges::sort(files);
    return files;
}

void Household::Prepare(QProcess& process, const QStringList& arguments) const
{
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(PathOf("work"));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setProgram(QStringLiteral(STUDIO_PROGRAM));
    process.setArguments(arguments);
}

int Household::Run(const QStringList& arguments) const
{
    QProcess process;
    Prepare(process, arguments);
    process.start();
    process.waitForFinished(120000);
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

bool Household::RunAndKill(const QStringList& arguments, std::chrono::milliseconds usual)
{
    QProcess process;
    Prepare(process, arguments);
    process.start();
    const auto moment = static_cast<int>(dice() % static_cast<unsigned>(usual.count()));
    if (process.waitForFinished(moment)) {
        return process.exitCode() == 0;
    }
    process.kill();
    process.waitForFinished();
    ++kills;
    return false;
}

int Household::OpenAndCloseWindow() const
{
    QProcess process;
    Prepare(process, {});
    process.start();
    process.waitForStarted();
    const QString status = QStringLiteral("/proc/%1/status").arg(process.processId());
    static_cast<void>(QTest::qWaitFor([&] { return CatchesTermination(status); }, 30000));
    process.terminate();
    process.waitForFinished(60000);
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

QStringList Household::Running() const
{
    QStringList found;
    const QByteArray mark = "TMPDIR=" + QFile::encodeName(PathOf("temp"));
    for (const QString& process : QDir("/proc").entryList(QDir::Dirs)) {
        if (process.toInt() > 0 &&
            CorvexTest::ContentOf("/proc/" + process + "/environ").contains(mark)) {
            found << QString::fromLocal8Bit(
                CorvexTest::ContentOf("/proc/" + process + "/cmdline").replace('\0', ' '));
        }
    }
    return found;
}

}  // namespace LongTest
