#include "WriterProcess.h"

#include "FullDisk.h"
#include "SampleMaterials.h"
#include <CorvexMaterial/Status.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

namespace LibraryTest {
namespace {

constexpr const char* kWriterArgument = "--write-library";

void Write(const char* path, int first, int count)
{
    auto library = studio::LibraryFile::Open(path, studio::LibraryKind::Materials);
    for (int number = first; number < first + count; ++number) {
        const WriterProcess::Change change = ChangeNumber(number);
        if (change.isAdded) {
            studio::NewEntry entry = EntryNamed(change.name);
            entry.png.assign(5000, 'x');
            library.Add(entry);
        } else {
            library.Remove(library.IdsNamed(change.name));
        }
        std::printf("%c%s\n", change.isAdded ? '+' : '-', change.name.c_str());
        std::fflush(stdout);
    }
}

}  // namespace

WriterProcess::Change ChangeNumber(int number)
{
    return number % 3 == 2 ? WriterProcess::Change{false, "entry " + std::to_string(number - 2)}
                           : WriterProcess::Change{true, "entry " + std::to_string(number)};
}

WriterProcess::WriterProcess(const std::string& library, int firstNumber, int changes, Disk disk)
{
    m_process.start(QStringLiteral("/proc/self/exe"),
                    {kWriterArgument, QString::fromStdString(library), QString::number(firstNumber),
                     QString::number(changes),
                     disk == Disk::Full ? QStringLiteral("full") : QStringLiteral("free")});
    m_process.waitForStarted();
}

bool WriterProcess::WaitForReport()
{
    const bool hasReport = m_process.waitForReadyRead(30000);
    m_output += m_process.readAllStandardOutput();
    return hasReport;
}

void WriterProcess::Kill()
{
    m_process.kill();
    WaitForEnd();
}

void WriterProcess::WaitForEnd()
{
    m_process.waitForFinished(30000);
    m_output += m_process.readAllStandardOutput();
}

std::vector<WriterProcess::Change> WriterProcess::Reported()
{
    std::vector<Change> changes;
    // What follows the last line end was never reported.
    for (QByteArray rest = m_output; rest.contains('\n');) {
        const auto end = rest.indexOf('\n');
        changes.push_back({rest.startsWith('+'), rest.mid(1, end - 1).toStdString()});
        rest = rest.mid(end + 1);
    }
    return changes;
}

std::optional<int> RunWriterIfAsked(int argc, char** argv)
{
    if (argc != 6 || std::string(argv[1]) != kWriterArgument) {
        return std::nullopt;
    }
    try {
        std::optional<CorvexTest::FullDisk> disk;
        if (std::string(argv[5]) == "full") {
            disk.emplace(static_cast<rlim_t>(QFileInfo(argv[2]).size() + 30000));
        }
        Write(argv[2], std::atoi(argv[3]), std::atoi(argv[4]));
        return 0;
    } catch (const CorvexMaterial::Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}

}  // namespace LibraryTest
