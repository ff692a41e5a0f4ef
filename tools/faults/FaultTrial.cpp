#include "FaultTrial.h"

#include <QProcess>
#include <QTemporaryDir>

namespace faults {
namespace {

constexpr int kMostMilliseconds = 300'000;

}  // namespace

std::optional<QString> FaultTrial::Caught(int number, const QStringList& suites) const
{
    for (const QString& suite : suites) {
        if (!Passes(number, suite)) {
            return suite;
        }
    }
    return std::nullopt;
}

// A suite that does not end is one that tells, too.
bool FaultTrial::Passes(int number, const QString& suite) const
{
    const QString folder = suite.section(u':', 0, 0);
    const QString cases = suite.section(u':', 1);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("CORVEX_FAULT", QString::number(number));
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("GTEST_FAIL_FAST", "1");
    environment.insert("GTEST_FILTER", cases.isEmpty() ? QStringLiteral("*") : cases);
    QProcess run;
    run.setProcessEnvironment(environment);
    run.setWorkingDirectory(QStringLiteral("%1/tests/%2").arg(m_build, folder));
    run.setStandardOutputFile(QProcess::nullDevice());
    run.setStandardErrorFile(QProcess::nullDevice());
    run.start(QStringLiteral("%1/tests/%2/%2_tests").arg(m_build, folder), QStringList());
    const bool ended = run.waitForFinished(kMostMilliseconds);
    run.kill();
    run.waitForFinished();
    return ended && run.exitStatus() == QProcess::NormalExit && run.exitCode() == 0;
}

}  // namespace faults
