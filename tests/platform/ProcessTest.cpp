#include "ErrorMatch.h"
#include "ProcessLeash.h"
#include "SearchPath.h"
#include <CorvexMaterial/QtPlatform.h>

#include <cerrno>

#include <sys/wait.h>
#include <unistd.h>

using namespace CorvexMaterial;
using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Optional;

namespace {

class ProcessTest : public testing::Test {
protected:
    std::unique_ptr<Process> Start(const ProcessRequest& request)
    {
        return m_platform.Get().processes.Start(request);
    }

    QtPlatform m_platform;
};

class PaintCounter final : public QWidget {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

/// The number that the program prints first.
pid_t PrintedId(Process& process)
{
    std::string text;
    for (int i = 0; i < 1000 && text.find('\n') == std::string::npos; ++i) {
        process.Wait(10ms);
        text += process.TakeOutput();
    }
    return std::stoi(text);
}

bool Runs(pid_t process)
{
    return ::kill(process, 0) == 0 || errno != ESRCH;
}

}  // namespace

TEST_F(ProcessTest, ArgumentsReachTheProgramUninterpreted)
{
    const auto process = Start({"printf", {"%s|", "a b", "$(id)", "*", "", "\"q", "ü"}, {}});
    ASSERT_EQ(process->Wait(10s), ProcessState::Exited);
    EXPECT_EQ(process->ExitCode(), 0);
    EXPECT_EQ(process->TakeOutput(), "a b|$(id)|*||\"q|ü|");
    EXPECT_EQ(process->TakeOutput(), "");
}

TEST_F(ProcessTest, ReportsExitCodeErrorOutputAndWorkingFolder)
{
    const auto process = Start({"sh", {"-c", "pwd; echo trouble >&2; cat; exit 7"}, "/usr"});
    ASSERT_EQ(process->Wait(10s), ProcessState::Exited);
    EXPECT_EQ(process->ExitCode(), 7);
    EXPECT_EQ(process->TakeOutput(), "/usr\n");
    EXPECT_EQ(process->TakeErrorOutput(), "trouble\n");
}

TEST_F(ProcessTest, ACrashIsNoExit)
{
    EXPECT_EQ(Start({"sh", {"-c", "kill -SEGV $$"}, {}})->Wait(10s), ProcessState::Crashed);
}

TEST_F(ProcessTest, AProgramThatCannotBeStartedIsNamed)
{
    EXPECT_THAT(FileFailure([&] {
                    Start({"/no/such program", {}, {}});
                }),
                Optional(HasSubstr("/no/such program")));
    EXPECT_THAT(FileFailure([&] {
                    Start({"/etc/passwd", {}, {}});
                }),
                Optional(HasSubstr("/etc/passwd")));
    EXPECT_THAT(FileFailure([&] {
                    Start({"true", {}, "/no/such folder"});
                }),
                Optional(HasSubstr("true")));
}

TEST_F(ProcessTest, NothingIsFoundInTheCurrentFolder)
{
    const QTemporaryDir folder;
    QFile planted(folder.filePath("planted"));
    ASSERT_TRUE(planted.open(QIODevice::WriteOnly));
    planted.write("#!/bin/sh\n");
    planted.close();
    planted.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    const QString here = QDir::currentPath();
    const QByteArray path = qgetenv("PATH");
    QDir::setCurrent(folder.path());
    qputenv("PATH", ":.:" + path + "::" + folder.path().section('/', -1).toUtf8() + ":../x");
    qputenv("XDG_DATA_HOME", "here");
    for (const char* name : {"planted", "./planted"}) {
        EXPECT_THAT(FileFailure([&] { Start({name, {}, {}}); }), Optional(HasSubstr(name)));
    }
    DropRelativeSearchPaths();
    EXPECT_EQ(qgetenv("PATH"), path);
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_DATA_HOME")) << "its plug-ins would be run";
    QDir::setCurrent(here);
    qputenv("PATH", path);
}

TEST_F(ProcessTest, WindowsRepaintDuringAWait)
{
    PaintCounter window;
    window.resize(40, 40);
    window.show();
    QTimer repaint;
    QObject::connect(&repaint, &QTimer::timeout, &window, [&] { window.update(); });
    repaint.start(10ms);
    const auto process = Start({"sleep", {"60"}, {}});
    EXPECT_EQ(process->Wait(300ms), ProcessState::Running);
    EXPECT_GE(window.paints, 2);
}

TEST_F(ProcessTest, StopEndsAProgramThatDoesNotListen)
{
    const auto process = Start({"sh", {"-c", "trap '' TERM; echo $$; while :; do :; done"}, {}});
    const pid_t id = PrintedId(*process);
    ASSERT_TRUE(Runs(id));
    process->Stop();
    EXPECT_FALSE(Runs(id));
    EXPECT_EQ(process->Wait(0ms), ProcessState::Crashed);
}

// A wrapper that ends at once when it is asked to, a child that does not listen.
TEST_F(ProcessTest, EndsWithAllThatItStarted)
{
    constexpr const char* kDeaf = "(trap '' TERM; echo $(exec sh -c 'echo $PPID'); "
                                  "while :; do sleep 0.1; done) & ";
    auto stopped = Start({"sh", {"-c", std::string(kDeaf) + "wait"}, {}});
    auto ended = Start({"sh", {"-c", std::string(kDeaf) + "sleep 0.2"}, {}});
    const pid_t ids[] = {PrintedId(*stopped), PrintedId(*ended)};
    ASSERT_TRUE(Runs(ids[0]) && Runs(ids[1]));
    stopped->Stop();
    EXPECT_EQ(ended->Wait(10s), ProcessState::Exited);
    ended.reset();
    for (const pid_t id : ids) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !Runs(id); }, 10000)) << id;
    }
}

TEST_F(ProcessTest, DestroyingARunningProcessStopsIt)
{
    auto process = Start({"sh", {"-c", "echo $$; exec sleep 60"}, {}});
    const pid_t id = PrintedId(*process);
    process.reset();
    EXPECT_FALSE(Runs(id));
}

// The way of a crash, or of a user who loses patience.
TEST_F(ProcessTest, AProgramDoesNotOutliveAKilledStarter)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t starter = ::fork();
    if (starter == 0) {
        const ProcessLeash leash;
        if (::fork() == 0) {
            leash.HoldThisProcess();
            ::dup2(ends[1], STDOUT_FILENO);
            ::execl("/bin/sh", "sh", "-c", "trap '' TERM; echo $$; while :; do sleep 0.1; done",
                    nullptr);
        }
        while (true) {
            ::pause();
        }
    }
    char printed[16] = {};
    ASSERT_GT(::read(ends[0], printed, sizeof printed - 1), 0);
    const pid_t program = std::stoi(printed);
    ASSERT_TRUE(Runs(program));
    ::kill(starter, SIGKILL);
    ::waitpid(starter, nullptr, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Runs(program); }, 10000));
    ::close(ends[0]);
    ::close(ends[1]);
}
