#include "ThirdRaytracer.h"
#include "ControlRig.h"
#include "OptionsDialog.h"
#include "RaytraceRun.h"
#include "RaytracerField.h"
#include "SampleFolder.h"
#include "StudioSettings.h"
#include <CorvexMaterial/QtPlatform.h>

namespace {

using namespace CorvexMaterial;

void WriteThird(studio::TextStream& out, const studio::RaytraceScene& scene,
                studio::RaytraceImages& /*images*/)
{
    out << "shapes " << scene.frame.items.size() << '\n';
    out.Finish();
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
    QString program = folder.Write("program", CorvexTest::kThirdProgram);
    studio::SceneWriter third{
        &CorvexTest::RowsWithThird().back(), {"png", ".png", "png", nullptr}, WriteThird};
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
    EXPECT_EQ(settings.RaytracerProgram(CorvexTest::RowsWithThird().back().program), program);
    EXPECT_EQ(settings.RaytracerProgram(CorvexTest::RowsWithThird()[1].program), "");
    options.findChild<QAbstractButton*>("testThird")->click();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return options.findChild<QLabel*>("thirdStatus")->text() == "Third works."; },
        10000));
}

}  // namespace
