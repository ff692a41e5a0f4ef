#pragma once

#include <QProcess>
#include <QString>

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace LibraryTest {

/// A process of its own that adds entries to a library and deletes some of them, and says after
/// each change that is on the disk what it was.
class WriterProcess {
public:
    enum class Disk { Free, Full };

    /// With a full disk no file may grow beyond a few pages more than the library has.
    WriterProcess(const std::string& library, int firstNumber, int changes, Disk disk);

    /// Waits for some change to be reported; false when the process has ended.
    bool WaitForReport();
    void Kill();
    void WaitForEnd();
    [[nodiscard]] bool IsRunning() const { return m_process.state() != QProcess::NotRunning; }

    /// Names that the library must have after the first n reported changes, in order.
    struct Change {
        bool isAdded = true;
        std::string name;
    };
    [[nodiscard]] std::vector<Change> Reported();
    [[nodiscard]] QString Errors() { return QString::fromUtf8(m_process.readAllStandardError()); }

private:
    QProcess m_process;
    QByteArray m_output;
};

/// What the process does from change `number` on; the same in the test, which so knows what comes
/// after the last report.
[[nodiscard]] WriterProcess::Change ChangeNumber(int number);

/// The exit code, if this process was started as a writer.
[[nodiscard]] std::optional<int> RunWriterIfAsked(int argc, char** argv);

}  // namespace LibraryTest
