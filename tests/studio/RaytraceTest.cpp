// The panel's raytracing with the real POV-Ray, through the studio's launcher.

#include "dialogs/WarningCatalogue.h"
#include "studio/app/StudioApplicationState.h"
#include "studio/libraries/SqliteMaterialLibrary.h"
#include "studio/render/ViewportWidget.h"
#include "tests/studio/StudioRig.h"

#include <QAbstractButton>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <set>

namespace {

using CorvexDB::udtMaterial;
using StudioTest::StudioRig;

class Raytracing : public testing::Test {
protected:
    Raytracing()
    {
        qputenv("CORVEX_POVRAY_LAUNCHER", LAUNCHER_PROGRAM);
        qputenv("temp", jobs.path().toLocal8Bit());
        rig.Start();
        for (const char* key :
             {"POVRayConfiguration", "Simulation Texture", "RaytraceSimulation"}) {
            rig.Settings().Write({rig.Host().State().SettingsApplicationName(),
                                  std::string(CorvexMaterial::kTipsSection), key},
                                 "0");
        }
    }
    ~Raytracing() override
    {
        qunsetenv("temp");
        qunsetenv("CORVEX_POVRAY_LAUNCHER");
    }

    void Show(const udtMaterial& material)
    {
        rig.Shape(0)->SetApplied(studio::WholeMaterial(material));
        rig.Select({0});
        QSignalSpy shown(&Preview(), &studio::ViewportWidget::pictureShown);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !shown.empty(); }, 5000));
        QTest::qWait(100);
    }

    studio::ViewportWidget& Preview()
    {
        return *rig.Window().Panel().findChild<studio::ViewportWidget*>();
    }
    QStringList Files() { return QDir(jobs.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir jobs;
    StudioRig rig;
};

udtMaterial RedAndBlue()
{
    udtMaterial material;
    material.RayTrace.ColorPatternColor = {{{1.0F, 0.0F, 0.0F, 0.0F},
                                            {0.0F, 0.0F, 1.0F, 0.0F},
                                            {1.0F, 0.0F, 0.0F, 0.0F},
                                            {0.0F, 0.0F, 1.0F, 0.0F}}};
    return material;
}

/// In whole steps of 32, so that smooth shading counts as few.
std::size_t Colours(const QImage& picture)
{
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            colours.insert(picture.pixel(x, y) & 0x00E0E0E0U);
        }
    }
    return colours.size();
}

TEST_F(Raytracing, ThePreviewBecomesPovRaysPicture)
{
    udtMaterial checked = RedAndBlue();
    checked.RayTrace.ColorPattern = 5;
    Show(checked);
    const QImage before = Preview().grab().toImage();
    rig.Press("cmdPreview");
    ASSERT_TRUE(rig.prompts.shown.empty()) << rig.prompts.shown.front().text;
    const QImage after = Preview().grab().toImage();
    const QRgb middle = after.pixel(after.width() / 2, after.height() / 2);
    EXPECT_NE(after, before);
    EXPECT_GT(std::max(qRed(middle), qBlue(middle)), qGreen(middle) + 50);
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(Raytracing, ARenderedSceneCanBeCancelled)
{
    rig.Window().RenderScene();
    auto* window = rig.Window().findChild<QDialog*>("renderWindow");
    ASSERT_NE(window, nullptr);
    auto* cancel = window->findChild<QAbstractButton*>("cancelRender");
    CorvexTest::Click(*cancel);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return window->findChild<QLabel*>("renderStatus")->text() == "Cancelled."; }, 10000));
    QSignalSpy gone(window, &QObject::destroyed);
    CorvexTest::Click(*cancel);
    EXPECT_TRUE(gone.wait());
}

TEST_F(Raytracing, ASimulationIsTheOnlyFileThatStays)
{
    Show(RedAndBlue());
    const CorvexTest::DialogAnswer answer([](QDialog& dialog) {
        CorvexTest::Choose(*dialog.findChild<QComboBox*>("cboColorPattern"), "Agate");
        CorvexTest::Click(*dialog.findChild<QAbstractButton*>("cmdOK"));
    });
    rig.Press("cmdMaterialExtended");
    ASSERT_TRUE(answer.Given());
    ASSERT_TRUE(rig.prompts.shown.empty()) << rig.prompts.shown.front().text;
    const QString texture = QString::fromStdString(rig.Shape(0)->Material().Textures.primary);
    EXPECT_EQ(Files(), QStringList(QFileInfo(texture).fileName()));
    EXPECT_EQ(QFileInfo(texture).path(), QFileInfo(jobs.path()).canonicalFilePath());
    EXPECT_GT(Colours(QImage(texture)), 15U);

    auto& library = rig.Host().Materials();
    const QString path = rig.PathOf("Kept.cvm");
    library.CreateLibrary(path.toStdString());
    library.Open(path.toStdString());
    library.AddMaterialToLibrary(rig.Shape(0)->Material());
    ASSERT_TRUE(QFile::remove(texture));
    EXPECT_GT(Colours(QImage(QString::fromStdString(library.MaterialAt(0).Textures.primary))), 15U);

    // Without the pattern the picture stands for nothing.
    const CorvexTest::DialogAnswer none([](QDialog& dialog) {
        CorvexTest::Choose(*dialog.findChild<QComboBox*>("cboColorPattern"), "None");
        CorvexTest::Click(*dialog.findChild<QAbstractButton*>("cmdOK"));
    });
    rig.Press("cmdMaterialExtended");
    ASSERT_TRUE(none.Given());
    EXPECT_EQ(rig.Shape(0)->Material().Textures.primary, "");
}

}  // namespace
