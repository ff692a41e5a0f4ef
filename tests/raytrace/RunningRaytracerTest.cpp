#include "FakeRaytracer.h"
#include "RaytraceMessages.h"

#include <QProgressBar>

namespace {

using namespace CorvexTest;
using namespace CorvexMaterial;
using ::testing::HasSubstr;

class RunningRaytracer : public WithStartedControl {
protected:
    void ExpectCleanEnd()
    {
        EXPECT_TRUE(raytracer.Leftovers().isEmpty())
            << raytracer.Leftovers().join(' ').toStdString();
        EXPECT_TRUE(rig.Find<QAbstractButton>("cmdPreview").isEnabled());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_EQ(QDir::currentPath(), m_workingFolder);
    }

    FakeRaytracer raytracer{rig};

private:
    QString m_workingFolder = QDir::currentPath();
};

struct Failure {
    const char* name;
    const char* commands;
    const char* details;  ///< null when the picture is shown
    bool isRenderMan = false;
};

class FailingRaytracer : public RunningRaytracer, public ::testing::WithParamInterface<Failure> {};

TEST_P(FailingRaytracer, IsOneBoxThatCanSayWhy)
{
    const auto& [name, commands, details, isRenderMan] = GetParam();
    isRenderMan ? raytracer.RunsAsRenderMan(commands) : raytracer.Runs(commands);
    rig.Press("cmdPreview");
    EXPECT_EQ(rig.log.CountOf("Viewport.ShowBitmap"), details == nullptr ? 1U : 0U);
    ASSERT_EQ(rig.platform.prompts.shown.size(), details == nullptr ? 0U : 1U);
    if (details != nullptr) {
        const Message& box = rig.platform.prompts.shown.front();
        EXPECT_EQ(box.text, kRaytracerFailed);
        EXPECT_EQ(box.title, "Corvex");
        EXPECT_EQ(box.icon, PromptIcon::Critical);
        EXPECT_THAT(box.details, HasSubstr(details));
    }
    ExpectCleanEnd();
}

INSTANTIATE_TEST_SUITE_P(
    Raytracers, FailingRaytracer,
    ::testing::Values(
        Failure{"Rendering", "grep -q Display=off \"$ini\" && cp \"$picture\" \"$out\"", nullptr},
        Failure{"Errors", "cp \"$picture\" \"$out\"; echo 'no <light>' >&2; exit 1", "no <light>"},
        Failure{"SaysWhyOnStandardOutput", "echo 'bad scene'; exit 3", "exit code 3"},
        Failure{"Crashes", "cp \"$picture\" \"$out\"; kill -SEGV $$", "crashed"},
        Failure{"IsKilled", "touch \"${ini%.ini}.pov-state\"; kill -KILL $$", "crashed"},
        Failure{"CrashesBehindALauncher", "echo 'Cannot access data'; exit 139",
                "crashed (exit code 139). It says: Cannot access data"},
        Failure{"SteersTheTerminal", "printf '1\\n\\033[2J \\302\\233 3\\n4\\n5'; exit 1",
                "exit code 1. It says: \\u001b[2J \\u009b 3 | 4 | 5"},
        Failure{"WritesNothing", "exit 0", "made no picture (exit code 0)"},
        Failure{"WritesAnEmptyImage", ": > \"$out\"", "made no picture"},
        Failure{"WritesAnotherSize", "make 8 256 > \"$out\"",
                "8 by 256 pixels instead of 256 by 256"},
        // A RenderMan renderer is judged by its words, too.
        Failure{"Renders", "[ -f \"$scene\" ] && cp \"$picture\" \"$out\"", nullptr, true},
        Failure{"RendersWhereItWorks", "cp \"$picture\" \"${out##*/}\"", nullptr, true},
        Failure{"Warns",
                "cp \"$picture\" \"$out\"; echo 'R7 {WARNING} dull' >&2; echo 'ERRORS=0 TERROR'",
                nullptr, true},
        Failure{"ErrsWithAnImage", "cp \"$picture\" \"$out\"; echo 'R12 {ERROR} no shader \"x\"'",
                "an error. It says: R12 {ERROR} no shader \"x\"", true},
        Failure{"ErrsAndGoesOnTalking",
                "cp \"$picture\" \"$out\"; echo '3DL SEVERE: no memory' >&2; seq 9000",
                "It says: 3DL SEVERE: no memory", true},
        Failure{"ErrsInItsLastLine", "cp \"$picture\" \"$out\"; printf 'Error: no licence'",
                "It says: Error: no licence", true}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(RunningRaytracer, ThatIsMissingIsTheSameBox)
{
    rig.host.applicationState.povRayProgram = "/nowhere/povray";
    rig.Press("cmdPreview");
    ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.platform.prompts.shown.front().text, kRaytracerFailed);
    EXPECT_THAT(rig.platform.prompts.shown.front().details, HasSubstr("/nowhere/povray"));
    ExpectCleanEnd();
}

TEST_F(RunningRaytracer, ShowsItsProgressWhileEverythingElseIsShut)
{
    raytracer.Runs("printf 'Rendered 5 of 20 pixels (25%%)\\r' >&2\n"
                   "n=0; while [ ! -e \"$out.go\" ] && [ $((n=n+1)) -lt 250 ]\n"
                   "do sleep 0.02; done\n"
                   "rm \"$out.go\" && cp \"$picture\" \"$out\"");
    const QString folder = raytracer.Folder();
    const DialogAnswer answer([&](QDialog& dialog) {
        EXPECT_FALSE(rig.Find<QAbstractButton>("cmdPreview").isEnabled());
        auto& header = rig.Find<QAbstractButton>("chkMaterialPanel");
        Click(header);
        QTest::keyClick(&header, Qt::Key_Space);
        EXPECT_TRUE(header.isChecked());
        auto* bar = dialog.findChild<QProgressBar*>();
        auto* watch = new QTimer(&dialog);
        QObject::connect(watch, &QTimer::timeout, &dialog, [bar, folder, watch] {
            if (bar->value() == 25) {
                watch->stop();
                const QStringList scene = QDir(folder).entryList({"~CVX*.pov"});
                QFile(folder + '/' + scene.value(0).chopped(3) + "bmp.go")
                    .open(QIODevice::WriteOnly);
            }
        });
        watch->start(10);
        QTimer::singleShot(5000, &dialog, [] { ADD_FAILURE() << "no progress is shown"; });
    });
    rig.Press("cmdPreview");
    EXPECT_TRUE(answer.Given());
    EXPECT_EQ(rig.log.CountOf("Viewport.ShowBitmap"), 1U);
    ExpectCleanEnd();
}

TEST_F(RunningRaytracer, EndsWhenTheWindowIsClosedWhichClosesAfterwards)
{
    raytracer.Runs("exec sleep 3");
    const DialogAnswer answer([&](QDialog&) { EXPECT_FALSE(rig.Control().close()); });
    rig.Press("cmdPreview");
    EXPECT_TRUE(answer.Given());
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    EXPECT_TRUE(rig.Control().isVisible()) << "not under the feet of who works in it";
    QCoreApplication::processEvents();
    EXPECT_FALSE(rig.Control().isVisible());
    ExpectCleanEnd();
}

class HangingRaytracer : public RunningRaytracer,
                         public ::testing::WithParamInterface<const char*> {};

TEST_P(HangingRaytracer, EndsAtOnceOnCancelAndNothingIsSaid)
{
    raytracer.Runs(GetParam());
    const DialogAnswer answer(
        [](QDialog& dialog) { Click(*dialog.findChild<QAbstractButton*>("cmdCancel")); });
    QElapsedTimer clock;
    clock.start();
    rig.Press("cmdPreview");
    EXPECT_LT(clock.elapsed(), 2500);
    EXPECT_TRUE(answer.Given());
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    EXPECT_EQ(rig.log.CountOf("Viewport.ShowBitmap"), 0U);
    EXPECT_EQ(rig.log.CountOf("RaytraceServices.RaytraceAbandoned"), 0U);
    ExpectCleanEnd();
}

INSTANTIATE_TEST_SUITE_P(Raytracers, HangingRaytracer,
                         ::testing::Values("exec sleep 60", ": > \"$out\"; sleep 60 & wait; exit 2",
                                           "sleep 60\nsleep 60"));

}  // namespace
