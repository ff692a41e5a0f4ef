// A raytracer that the product does not have: its row and its scene writer are all it takes.

#include "platform/QtPlatform.h"
#include "raytrace/RenderWait.h"
#include "raytrace/frmMaterialExtended.h"
#include "studio/app/OptionsDialog.h"
#include "studio/app/StudioSettings.h"
#include "studio/raytrace/RaytraceRun.h"
#include "studio/raytrace/window/RaytracerField.h"
#include "tests/support/ControlRig.h"
#include "tests/support/SampleFolder.h"
#include "tests/support/Testing.h"

#include <QSignalSpy>

namespace {

using namespace CorvexMaterial;

CorvexDB::CommandLine ThirdLine(const RenderTask& task)
{
    return {{},
            task.program,
            {task.scene, task.picture, std::to_string(task.size.width),
             std::to_string(task.size.height)},
            {}};
}

RenderStart ThirdStart(const RenderTask& task, CorvexDB::ApplicationState& /*state*/)
{
    return {ThirdLine(task), {}, {"third"}};
}

void WriteThird(studio::TextStream& out, const studio::RaytraceScene& scene,
                studio::RaytraceImages& /*images*/)
{
    out << "shapes " << scene.frame.items.size() << '\n';
    out.Finish();
}

constexpr auto kThird = static_cast<CorvexDB::Raytracer>(2);
constexpr std::array kNotOfThird{RaytraceOption::Metallic};

const std::vector<RaytracerRow>& Rows()
{
    static const std::vector<RaytracerRow> kRows = [] {
        std::vector<RaytracerRow> rows(Raytracers().begin(), Raytracers().end());
        RaytracerRow third = rows.back();
        third.kind = kThird;
        third.word = "third";
        third.name = "Third";
        third.program.locationKey = "ThirdLocation";
        third.check.notFound = "Is there a third?";
        third.scene.suffix = "3rd";
        third.scene.pictureSuffix = "ppm";
        third.scene.tiff = TiffRule::Any;
        third.panelStart = ThirdStart;
        third.plainStart = ThirdLine;
        third.cannotShow = kNotOfThird;
        rows.push_back(third);
        return rows;
    }();
    return kRows;
}

class ThirdRaytracer : public testing::Test {
protected:
    ThirdRaytracer()
    {
        QFile(program).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        writers.assign(studio::SceneWriters().begin(), studio::SceneWriters().end());
        writers.push_back(third);
    }

    ProcessStarter& Processes() { return desktop.Get().processes; }

    QtPlatform desktop;
    CorvexTest::SampleFolder folder;
    QString program = folder.Write(
        "program",
        "#!/bin/sh\ngrep -q shapes \"$1\" || exit 7\n"
        "(printf 'P6 %d %d 255\\n' $3 $4; head -c $(($3 * $4 * 3)) /dev/zero) > \"$2\"\n");
    studio::SceneWriter third{&Rows().back(), {"png", ".png", "png", nullptr}, WriteThird};
    std::vector<studio::SceneWriter> writers;
};

TEST_F(ThirdRaytracer, RendersAndIsJudgedByTheOneRunner)
{
    studio::RaytraceRun run(Processes());
    QSignalSpy finished(&run, &studio::RaytraceRun::Finished);
    QSignalSpy failed(&run, &studio::RaytraceRun::Failed);
    studio::RaytraceScene scene;
    scene.frame.width = 40;
    scene.frame.height = 30;
    run.Start({program, &third}, scene, {}, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return finished.count() + failed.count() == 1; }, 10000));
    ASSERT_EQ(failed.count(), 0) << failed[0][0].toString().toStdString();
    EXPECT_EQ(finished[0][0].value<QImage>().size(), QSize(40, 30));
}

TEST_F(ThirdRaytracer, IsChosenAndFoundInTheOptions)
{
    CorvexTest::CallLog log;
    CorvexTest::RecordingStore store{log};
    studio::StudioSettings settings{store, "Corvex"};
    studio::OptionsDialog options(settings, Processes(), nullptr, writers);
    options.findChild<QComboBox*>("raytracer")->setCurrentText("Third");
    options.findChild<QLineEdit*>("thirdProgram")->setText(program);
    options.Store();
    EXPECT_EQ(settings.Number("Raytracer", 0), 2);
    EXPECT_EQ(settings.RaytracerProgram(Rows().back().program), program);
    EXPECT_EQ(settings.RaytracerProgram(Rows()[1].program), "");
    options.findChild<QAbstractButton*>("testThird")->click();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return options.findChild<QLabel*>("thirdStatus")->text() == "Third works."; },
        10000));
}

TEST_F(ThirdRaytracer, IsCheckedAndRunByThePanel)
{
    CorvexTest::ControlRig rig;
    rig.Start();
    rig.host.applicationState.raytracer = kThird;
    rig.platform.prompts.answers = {true, true};
    rig.platform.choosers.files = {program.toStdString()};
    rig.platform.processes.passOn = &Processes();
    Host host = rig.host.Get();
    Platform platform = rig.platform.Get();
    modRaytrace raytrace(host, platform, &rig.Control(), Rows());
    EXPECT_TRUE(raytrace.CheckRaytracer());
    EXPECT_EQ(rig.log.DetailsOf("Prompts.AskYesNo").front(), "Corvex: Is there a third?");
    EXPECT_TRUE(raytrace.CheckRaytracer()) << "it is known now";
    EXPECT_EQ(rig.log.CountOf("Prompts.AskYesNo"), 2U);
    rig.host.exporter.textures = {"/a.tif", "/b.png"};
    CorvexTest::RecordingScene scene{rig.log};
    RenderWait wait(platform.processes, rig.Control());
    EXPECT_EQ(raytrace.Render({scene, CorvexSG::RaytraceView::Scene, {8, 8}, 0, &wait},
                              [](const std::string&) {}),
              RaytraceOutcome::Failed)
        << "the recording host writes no scene";
    EXPECT_EQ(rig.platform.processes.requests.back().arguments.at(2), "8");
    EXPECT_THAT(rig.platform.prompts.shown.back().details, testing::HasSubstr("exit code 7"));
}

}  // namespace
