#include "RecentFiles.h"
#include "StudioRig.h"
#include "ViewportWidget.h"

#include <QProgressDialog>

namespace {

using OpeningAModel = StudioTest::StartedStudio;

const QString kStillLife = QStringLiteral(MODEL_FOLDER "/still-life.obj");

TEST_F(OpeningAModel, ReplacesSceneSelectionAndHistory)
{
    rig.Select({0});
    rig.Choose("cboColor", "Bronze");
    const studio::Camera before = rig.Window().Viewport().Camera();
    rig.Open(kStillLife);
    EXPECT_NE(rig.Window().Viewport().Camera(), before) << "it fills the picture";
    EXPECT_TRUE(rig.prompts.shown.empty());
    EXPECT_EQ(rig.Window().Scene().All().size(), 5U);
    EXPECT_TRUE(rig.Window().Selected().All().empty());
    EXPECT_EQ(rig.Window().History().count(), 0);
    EXPECT_TRUE(rig.Window().windowTitle().contains("still-life.obj"));
    EXPECT_EQ(rig.Host().Get().applicationState.ScenePath(), MODEL_FOLDER "/");

    rig.Window().ResetScene();
    EXPECT_EQ(rig.Host().Get().applicationState.ScenePath(), "");
}

TEST_F(OpeningAModel, ABadOneIsNamedAndEverythingStays)
{
    rig.files.Write("empty.ply", "");
    rig.files.Write("garbage.gltf", "{\"asset\": 7, \"scenes\": [[[[");
    rig.files.Write("words.xyz", "this is no model");
    rig.files.Write("truncated.x", "xof 0303txt 0032\nMesh { 4; 0;0;0;,");
    rig.Select({0});
    rig.Choose("cboColor", "Bronze");
    const auto shapes = rig.Window().Scene().All();
    const QString title = rig.Window().windowTitle();
    for (const char* name :
         {"missing.obj", "empty.ply", "garbage.gltf", "words.xyz", "truncated.x"}) {
        rig.prompts.shown.clear();
        studio::RecentFiles(rig.Host().Settings()).Add(rig.PathOf(name));
        rig.Open(rig.PathOf(name));
        EXPECT_TRUE(studio::RecentFiles(rig.Host().Settings()).Files().isEmpty());
        ASSERT_EQ(rig.prompts.shown.size(), 1U) << name;
        EXPECT_NE(rig.prompts.shown.front().text.find(name), std::string::npos);
        EXPECT_EQ(rig.Window().Scene().All(), shapes);
        EXPECT_EQ(rig.Window().windowTitle(), title);
        EXPECT_EQ(rig.Window().Selected().Latest(), shapes.front());
        ASSERT_EQ(rig.Window().History().count(), 1);
    }
    rig.Open(kStillLife);
    EXPECT_EQ(rig.Window().Scene().All().size(), 5U);
}

TEST_F(OpeningAModel, CancelledIsSaidAndNoFault)
{
    rig.Window().OpenModel(kStillLife);
    Q_EMIT rig.Window().findChild<QProgressDialog*>()->canceled();
    EXPECT_TRUE(rig.prompts.shown.empty());
    EXPECT_TRUE(rig.Find<QLabel>("miscField").text().contains("was not opened"));
}

TEST_F(OpeningAModel, TheLastOfTwoRequestsWins)
{
    rig.Window().OpenModel(rig.PathOf("first.obj"));
    rig.Open(kStillLife);
    EXPECT_TRUE(rig.prompts.shown.empty());
    EXPECT_EQ(rig.Window().Scene().All().size(), 5U);
}

TEST_F(OpeningAModel, ADroppedFileOpensAndIsRememberedAsRecent)
{
    QSignalSpy opened(&rig.Window(), &studio::MainWindow::SceneOpened);
    EXPECT_TRUE(CorvexTest::DropFile(rig.Window(), kStillLife, {20, 20}));
    ASSERT_TRUE(opened.wait(30000));
    rig.Stop();
    rig.Start();
    EXPECT_EQ(studio::RecentFiles(rig.Host().Settings()).Files(), QStringList(kStillLife));
}

}  // namespace
