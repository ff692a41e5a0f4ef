#include "tests/studio/StudioRig.h"

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

using StudioTest::StudioRig;

const QString kStillLife = QStringLiteral(MODEL_FOLDER "/still-life.obj");

TEST(OpeningAModel, ReplacesSceneSelectionAndHistory)
{
    StudioRig rig;
    rig.Start();
    rig.Select({0});
    rig.Choose("cboColor", "Bronze");
    rig.Open(kStillLife);
    EXPECT_TRUE(rig.prompts.shown.empty());
    EXPECT_EQ(rig.Window().Scene().All().size(), 5U);
    EXPECT_TRUE(rig.Window().Selected().All().empty());
    EXPECT_EQ(rig.Window().History().count(), 0);
    EXPECT_TRUE(rig.Window().windowTitle().contains("still-life.obj"));
    EXPECT_EQ(rig.Host().Get().applicationState.ScenePath(), MODEL_FOLDER "/");

    rig.Window().ResetScene();
    EXPECT_EQ(rig.Host().Get().applicationState.ScenePath(), "");
}

struct BadFile {
    const char* name;
    const char* bytes;  ///< null: there is no such file
};

class BadModel : public testing::TestWithParam<BadFile> {};

TEST_P(BadModel, IsNamedAndEverythingStays)
{
    StudioRig rig;
    rig.Start();
    const QString path = rig.PathOf(GetParam().name);
    if (GetParam().bytes != nullptr) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(GetParam().bytes);
    }
    rig.Select({0});
    rig.Choose("cboColor", "Bronze");
    const auto shapes = rig.Window().Scene().All();
    const QString title = rig.Window().windowTitle();

    rig.Open(path);
    ASSERT_EQ(rig.prompts.shown.size(), 1U);
    EXPECT_NE(rig.prompts.shown.front().text.find(GetParam().name), std::string::npos);
    EXPECT_EQ(rig.Window().Scene().All(), shapes);
    EXPECT_EQ(rig.Window().windowTitle(), title);
    EXPECT_EQ(rig.Window().Selected().Latest(), shapes.front());
    ASSERT_EQ(rig.Window().History().count(), 1);
    rig.Open(kStillLife);
    EXPECT_EQ(rig.Window().Scene().All().size(), 5U);
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadModel,
    testing::Values(BadFile{"missing.obj", nullptr}, BadFile{"empty.ply", ""},
                    BadFile{"garbage.gltf", "{\"asset\": 7, \"scenes\": [[[["},
                    BadFile{"words.xyz", "this is no model"},
                    BadFile{"truncated.x", "xof 0303txt 0032\nMesh { 4; 0;0;0;,"}),
    [](const auto& row) { return QString(row.param.name).section('.', 0, 0).toStdString(); });

TEST(OpeningAModel, TheLastOfTwoRequestsWins)
{
    StudioRig rig;
    rig.Start();
    rig.Window().OpenModel(rig.PathOf("first.obj"));
    rig.Open(kStillLife);
    EXPECT_TRUE(rig.prompts.shown.empty());
    EXPECT_EQ(rig.Window().Scene().All().size(), 5U);
}

TEST(OpeningAModel, ADroppedFileOpensAndIsRememberedAsRecent)
{
    StudioRig rig;
    rig.Start();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(kStillLife)});
    QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&rig.Window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QSignalSpy opened(&rig.Window(), &studio::MainWindow::SceneOpened);
    QDropEvent drop({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&rig.Window(), &drop);
    ASSERT_TRUE(opened.wait(30000));
    rig.Stop();
    rig.Start();
    EXPECT_EQ(studio::RecentFiles(rig.Host().Settings()).Files(), QStringList(kStillLife));
}

}  // namespace
