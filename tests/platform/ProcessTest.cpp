#include "platform/QtPlatform.h"
#include "tests/platform/ErrorMatch.h"

#include <QTimer>
#include <QWidget>

#include <cerrno>
#include <csignal>

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

TEST_F(ProcessTest, DestroyingARunningProcessStopsIt)
{
    auto process = Start({"sh", {"-c", "echo $$; exec sleep 60"}, {}});
    const pid_t id = PrintedId(*process);
    process.reset();
    EXPECT_FALSE(Runs(id));
}
