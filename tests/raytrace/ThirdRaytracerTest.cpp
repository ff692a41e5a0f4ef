#include "ThirdRaytracer.h"
#include "ControlRig.h"
#include "RenderWait.h"
#include "SampleFolder.h"
#include "modRaytrace.h"
#include <CorvexMaterial/QtPlatform.h>

namespace {

using namespace CorvexTest;

TEST(ThirdRaytracer, IsCheckedAndRunByThePanel)
{
    QtPlatform desktop;
    const SampleFolder folder;
    const QString program = folder.Write("program", kThirdProgram);
    QFile(program).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    ControlRig rig;
    rig.Start();
    rig.host.applicationState.raytracer = kThird;
    rig.platform.prompts.answers = {true, true};
    rig.platform.choosers.files = {program.toStdString()};
    rig.platform.processes.passOn = &desktop.Get().processes;
    Host host = rig.host.Get();
    Platform platform = rig.platform.Get();
    modRaytrace raytrace(host, platform, &rig.Control(), RowsWithThird());
    EXPECT_TRUE(raytrace.CheckRaytracer());
    EXPECT_EQ(rig.log.DetailsOf("Prompts.AskYesNo").front(), "Corvex: Is there a third?");
    EXPECT_TRUE(raytrace.CheckRaytracer()) << "it is known now";
    EXPECT_EQ(rig.log.CountOf("Prompts.AskYesNo"), 2U);
    rig.host.exporter.textures = {"/a.tif", "/b.png"};
    RecordingScene scene{rig.log};
    RenderWait wait(platform.processes, rig.Control());
    EXPECT_EQ(raytrace.Render({scene, CorvexSG::RaytraceView::Scene, {8, 8}, 0, &wait},
                              [](const std::string&) {}),
              RaytraceOutcome::Failed)
        << "the recording host writes no scene";
    EXPECT_EQ(rig.platform.processes.requests.back().arguments.at(2), "8");
    EXPECT_THAT(rig.platform.prompts.shown.back().details, testing::HasSubstr("exit code 7"));
}

}  // namespace
