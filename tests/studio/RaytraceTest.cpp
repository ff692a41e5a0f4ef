// The panel's raytracing with the real POV-Ray, through the studio's launcher.

#include "SceneRaytracing.h"
#include "SimulationPictures.h"
#include "SqliteMaterialLibrary.h"
#include "StudioApplicationState.h"
#include "StudioRig.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/WarningCatalogue.h>

namespace {

using CorvexDB::udtMaterial;
using StudioTest::StudioRig;

class Raytracing : public testing::Test {
protected:
    Raytracing()
    {
        qputenv("CORVEX_POVRAY_LAUNCHER", LAUNCHER_PROGRAM);
        QDir().mkpath(temporary);
        qputenv("temp", temporary.toUtf8());
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
        rig.Select({});
        rig.Select({0});
        QSignalSpy shown(&Preview(), &studio::ViewportWidget::pictureShown);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !shown.empty(); }, 5000));
        QTest::qWait(100);
    }

    void ChoosePattern(const char* name)
    {
        const CorvexTest::DialogAnswer answer([name](QDialog& dialog) {
            CorvexTest::Choose(*dialog.findChild<QComboBox*>("cboColorPattern"), name);
            CorvexTest::Click(*dialog.findChild<QAbstractButton*>("cmdOK"));
        });
        rig.Press("cmdMaterialExtended");
        EXPECT_TRUE(answer.Given());
        EXPECT_TRUE(rig.prompts.shown.empty());
    }

    studio::ViewportWidget& Preview()
    {
        return *rig.Window().Panel().findChild<studio::ViewportWidget*>();
    }
    QStringList Files()
    {
        return QDir(temporary).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }

    QTemporaryDir folder;
    QString temporary = folder.filePath(QString::fromUtf8("jobs of \"häßlich\", #石"));
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
    udtMaterial textured;
    const QString texture =
        rig.files.Save(QString::fromUtf8("Bild #1, \"мрамор\" 石.tga.png"), QColor(210, 30, 180));
    textured.Textures.primary = texture.toStdString();
    const QString workingFolder = QDir::currentPath();
    for (const udtMaterial& material : {checked, textured}) {
        Show(material);
        const QImage before = Preview().grab().toImage();
        rig.Press("cmdPreview");
        ASSERT_TRUE(rig.prompts.shown.empty()) << rig.prompts.shown.front().text;
        const QImage after = Preview().grab().toImage();
        const QRgb middle = after.pixel(after.width() / 2, after.height() / 2);
        EXPECT_NE(after, before);
        EXPECT_GT(std::max(qRed(middle), qBlue(middle)), qGreen(middle) + 50);
        EXPECT_EQ(Files(), QStringList());
        EXPECT_EQ(QDir::currentPath(), workingFolder);
    }
}

TEST_F(Raytracing, ARenderedSceneCanBeCancelled)
{
    rig.Window().Raytracing().Render();
    auto* window = rig.Window().findChild<QDialog*>("renderWindow");
    ASSERT_NE(window, nullptr);
    auto* cancel = window->findChild<QAbstractButton*>("cancelRender");
    CorvexTest::Click(*cancel);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return window->findChild<QLabel*>("renderStatus")->text() == "Cancelled."; }, 10000));
    QSignalSpy gone(window, &QObject::destroyed);
    CorvexTest::Click(*cancel);
    EXPECT_TRUE(QTest::qWaitFor([&] { return gone.count() == 1; }));
}

TEST_F(Raytracing, ASimulationStaysForAsLongAsSomethingRefersToIt)
{
    Show(RedAndBlue());
    ChoosePattern("Agate");
    const udtMaterial simulated = rig.Shape(0)->Material();
    const QString texture = QString::fromStdString(simulated.Textures.primary);
    EXPECT_EQ(Files(), QStringList());
    EXPECT_GT(Colours(QImage(texture)), 15U);

    auto& library = rig.Host().Materials();
    const std::string path = rig.PathOf("Kept.cvm").toStdString();
    library.CreateLibrary(path);
    library.Open(path);
    library.AddMaterialToLibrary(simulated);
    const QString copy = QString::fromStdString(library.MaterialAt(0).Textures.primary);
    EXPECT_NE(copy, texture);
    EXPECT_GT(Colours(QImage(copy)), 15U);

    ChoosePattern("None");
    EXPECT_EQ(rig.Shape(0)->Material().Textures.primary, "") << "it stands for nothing any more";
    rig.Window().Panel().CopyFieldToFormMaterial(simulated);
    rig.Stop();
    rig.Start();
    EXPECT_TRUE(QFile::exists(texture)) << "the panel comes back with it";
    rig.Window().Panel().CopyFieldToFormMaterial({});
    {
        const studio::SimulationPictures otherProgram(QFileInfo(texture).path());
        rig.Stop();
        EXPECT_TRUE(QFile::exists(texture));
    }
    rig.Start();
    EXPECT_FALSE(QFile::exists(texture));
}

TEST_F(Raytracing, TheOptionsTestTheProgramThatTheyNameAndNoOther)
{
    const QString stubborn = rig.files.WriteScript("stubborn", "trap '' TERM\nexec sleep 60");
    rig.Trigger("Options...");
    auto& program = rig.Find<QLineEdit>("povRayProgram");
    auto& test = rig.Find<QAbstractButton>("testPovRay");
    const auto& status = rig.Find<QLabel>("povRayStatus");
    const auto says = [&](const char* text) {
        return QTest::qWaitFor([&] { return status.text().contains(text); }, 8000);
    };
    program.setText(rig.PathOf("nowhere"));
    EXPECT_TRUE(says("no program that can be run"));
    EXPECT_FALSE(test.isEnabled());
    program.setText("true");  // found like any program, and no raytracer
    test.click();
    EXPECT_TRUE(says("no picture")) << status.text().toStdString();
    program.setText(stubborn);
    test.click();
    EXPECT_TRUE(says("Rendering"));
    test.click();
    EXPECT_TRUE(says("cancelled"));
    test.click();
    rig.Find<QTimer>("testLimit").start(1);
    EXPECT_TRUE(says("within"));
    test.click();
    program.clear();
    EXPECT_TRUE(says("Uses"));
    test.click();
    EXPECT_TRUE(says("POV-Ray works.")) << status.text().toStdString();
    rig.Find<QDialog>("OptionsDialog").reject();
}

TEST_F(Raytracing, ARenderManRendererFindsPictureAndImagesWhereItWorks)
{
    const QString green = rig.files.Save("green.tif", Qt::darkGreen);
    const QString renderer = rig.files.WriteScript(
        "a renderer",
        "printf '%s ' \"$@\" >> \"$0.log\"\n"
        "grep -q '^WorldEnd$' \"$4\" || exit 1\n"
        "grep -q \"^Format $2 $3 1$\" \"$4\" || echo 'ERROR: another size'\n"
        "image=$(sed -n 's/.*\"string texturename\" .\"\\(.*\\)\".*/\\1/p' \"$4\")\n"
        "[ -f \"$image\" ] || echo \"ERROR: there is no image $image\"\n"
        "out=$(sed -n 's/^Display \"\\(.*\\)\" \"file\".*/\\1/p' \"$4\")\n"
        "(printf 'P6 %d %d 255\\n' $2 $3; head -c $(($2 * $3 * 3)) /dev/zero | tr '\\0' d)"
        " > \"$out\"");
    rig.Trigger("Options...");
    rig.Find<QComboBox>("raytracer").setCurrentIndex(1);
    rig.Find<QLineEdit>("renderManProgram").setText(renderer);
    rig.Find<QDialog>("OptionsDialog").accept();

    udtMaterial painted;
    painted.Textures.primary = green.toStdString();
    Show(painted);
    rig.Press("cmdPreview");
    ASSERT_TRUE(rig.prompts.shown.empty()) << rig.prompts.shown.front().details;
    const QImage shown = Preview().grab().toImage();
    EXPECT_EQ(shown.pixelColor(shown.rect().center()), QColor(100, 100, 100));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Files().isEmpty(); }, 5000))
        << "the images go with the scene";
    const auto log = [&] { return CorvexTest::ContentOf(renderer + ".log").toStdString(); };
    EXPECT_THAT(log(), testing::MatchesRegex("-res [0-9]+ [0-9]+ .*/~CVX[0-9]+[.]rib "));

    rig.Find<QAction>("renderScene").trigger();
    const auto& status = rig.Find<QLabel>("renderStatus");
    EXPECT_TRUE(QTest::qWaitFor([&] { return status.text().endsWith(" pixels"); }, 5000))
        << status.text().toStdString();
    EXPECT_TRUE(log().ends_with(" scene.rib "));
}

}  // namespace
