#pragma once

#include "SampleFolder.h"
#include "Testing.h"

namespace LongTest {

/// A user of his own: home, temporary files and work are in one folder, and so is all that the
/// programs that he starts and that are killed leave behind.
class Household {
public:
    Household();

    [[nodiscard]] QString PathOf(const QString& name) const { return m_folder.PathOf(name); }
    /// Everything in this folder and below, relative to it, sorted.
    [[nodiscard]] std::vector<std::string> FilesIn(const QString& name) const;
    [[nodiscard]] const QProcessEnvironment& Environment() const { return m_environment; }

    /// The studio, to be started in `work`.
    void Prepare(QProcess& process, const QStringList& arguments) const;
    /// Runs it. Its exit code; -1 when it crashed.
    int Run(const QStringList& arguments) const;
    /// The same, killed by SIGKILL at any moment of the time that it takes. True if it was faster.
    bool RunAndKill(const QStringList& arguments, std::chrono::milliseconds usual);
    /// The studio's window, asked to end when it is there. Its exit code.
    int OpenAndCloseWindow() const;

    /// Programs that he started, their children too.
    [[nodiscard]] QStringList Running() const;

    std::mt19937 dice{7};
    int kills = 0;

private:
    CorvexTest::SampleFolder m_folder;
    QProcessEnvironment m_environment;
};

}  // namespace LongTest
