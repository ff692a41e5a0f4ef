#include "ParametricMesh.h"
#include "RunProgram.h"
#include "SampleFolder.h"
#include "SceneDocument.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

using CorvexTest::Outcome;
using CorvexTest::SampleFolder;

Outcome OutcomeOf(const char* program, const QStringList& arguments,
                  const SampleFolder& configuration = {})
{
    return CorvexTest::RunProgram(program, arguments, [&](QProcess& process) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_CONFIG_HOME", configuration.Path());
        process.setProcessEnvironment(environment);
    });
}

Outcome Corvex(const QStringList& arguments)
{
    return OutcomeOf(COMMAND_PROGRAM, arguments);
}

TEST(CommandLine, VersionAndHelpNeedNoDisplay)
{
    qunsetenv("QT_QPA_PLATFORM");
    for (const char* program : {COMMAND_PROGRAM, STUDIO_PROGRAM}) {
        EXPECT_TRUE(OutcomeOf(program, {"--version"}).output.startsWith("corvex 1.")) << program;
    }
    for (const char* line : {"--help", "render --help", "library add -h"}) {
        const Outcome help = Corvex(QString(line).split(' '));
        EXPECT_EQ(help.exitCode, 0) << line;
        EXPECT_TRUE(help.output.contains("Exit codes")) << line;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

TEST(CommandLine, WrongUsageIsExplainedAndEndsWithTwo)
{
    for (const char* line :
         {"--nonsense", "one.obj", "one.obj two.obj", "render --out refused.png", "convert a.obj",
          "convert a.obj refused.png", "convert a.obj b.obj c.obj", "render a.obj",
          "render a.obj --primitive cube --out refused.png",
          "render --primitive pyramid --out refused.png",
          "render --primitive cube --out refused.png --size 0x10",
          "render --primitive cube --out refused.png --size 9000x10",
          "render --primitive cube --out refused.png --material shine=3",
          "render --primitive cube --out refused.png --material ambient=much",
          "render --primitive cube --out refused.png --material alpha-test=8",
          "render --primitive cube --out refused.png --material colour=Mud"}) {
        const Outcome run = Corvex(QString(line).split(' '));
        EXPECT_EQ(run.exitCode, 2) << line;
        EXPECT_TRUE(run.errors.contains("--help")) << line;
    }
    EXPECT_FALSE(QFile::exists("refused.png"));
}

TEST(CommandLine, AResultThatCannotBeWrittenIsAFailure)
{
    SampleFolder folder;
    const QString library = folder.PathOf("a.cvm");
    ASSERT_EQ(Corvex({"library", "add", library, "--name", "Oak"}).exitCode, 0);
    for (const char* line : {"--help", "--version", "library list %1", "library list %1 --json",
                             "library validate %1", "library add %1 --name Elm"}) {
        const Outcome run = CorvexTest::RunProgram(
            STUDIO_PROGRAM, QString(line).replace("%1", library).split(' '),
            [](QProcess& process) { process.setStandardOutputFile("/dev/full"); });
        EXPECT_EQ(run.exitCode, 1) << line;
        EXPECT_EQ(run.errors.count("No space left on device"), 1) << line;
    }
}

class Rendering : public testing::Test {
protected:
    QImage Draw(const QStringList& what)
    {
        const QString file = folder.PathOf("picture.png");
        const Outcome run =
            Corvex(QStringList{"render", "--size", "160x120", "--out", file} + what);
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
        errors = run.errors;
        return QImage(file);
    }

    SampleFolder folder;
    QString errors;  ///< what the last picture came with
};

TEST_F(Rendering, MaterialAssignmentsReachThePicture)
{
    const QImage red = Draw({"--primitive", "sphere", "--material", "colour=#ff0000"});
    ASSERT_EQ(red.size(), QSize(160, 120));
    const QColor centre = red.pixelColor(80, 60);
    EXPECT_GT(centre.red(), 100);
    EXPECT_LT(centre.green(), 60);
    const QImage bronze = Draw({"--primitive", "sphere", "--material", "colour=bronze"});
    EXPECT_GT(bronze.pixelColor(80, 60).green(), 60);
    const QImage cut = Draw({"--primitive", "sphere", "--material", "alpha-test=Less", "--material",
                             "alpha-test-reference=0"});
    EXPECT_NEAR(cut.pixelColor(80, 60).red(), cut.pixelColor(20, 60).red(), 4)
        << "every fragment fails the test: only the backdrop is left";
}

TEST_F(Rendering, AModelIsSeenAndWhatItGoesWithoutIsTold)
{
    const QImage picture = Draw({"file://" MODEL_FOLDER "/still-life%2Eobj"});
    EXPECT_NE(picture.pixelColor(80, 75), picture.pixelColor(5, 75));
    EXPECT_FALSE(errors.contains("corvex:")) << errors.toStdString();

    folder.Write("no.png", "no picture");
    folder.Write("no.mtl", "newmtl no\nTf 1 0 0\nmap_Kd no.png\n");
    Draw(
        {folder.Write("no.obj", "mtllib no.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl no\nf 1 2 3\n")});
    const QString file = folder.PathOf("no-at-all.png");
    const Outcome strict = Corvex({"render", folder.PathOf("no.obj"), "--strict", "--json",
                                   "--size", "16x12", "--out", file});
    EXPECT_EQ(strict.exitCode, 1);
    const QString texture = "{\"found\":true,\"texture\":\"" + folder.PathOf("no.png") + "\"}";
    for (const QString& line :
         {QString("\"outcome\":\"dropped\""), texture, "{\"written\":\"" + file + "\"}"}) {
        EXPECT_TRUE(strict.output.contains(line)) << strict.output.toStdString();
    }
    for (const char* told : {"no: Tf dropped", ", 1 dropped.", "no.png cannot be read"}) {
        EXPECT_TRUE(errors.contains(told)) << errors.toStdString();
    }
}

TEST_F(Rendering, FailuresNameTheFileAndEndWithOne)
{
    const QString missing = folder.PathOf("missing.obj");
    const Outcome unread = Corvex({"render", missing, "--out", folder.PathOf("a.png")});
    EXPECT_EQ(unread.exitCode, 1);
    EXPECT_TRUE(unread.errors.contains("missing.obj"));
    const QString nowhere = folder.PathOf("no/such/folder/a.png");
    const Outcome unwritten = Corvex({"render", "--primitive", "cube", "--out", nowhere});
    EXPECT_EQ(unwritten.exitCode, 1);
    EXPECT_TRUE(unwritten.errors.contains(nowhere));

    const QString raytracer =
        folder.WriteScript("raytracer", "touch \"$0.ran\"\necho broken\nexit 3");
    qputenv("CORVEX_POVRAY", raytracer.toUtf8());
    qputenv("CORVEX_RENDERMAN", raytracer.toUtf8());
    const QStringList raytraced{"render", "--raytrace", "--primitive", "cube", "--out"};
    EXPECT_EQ(Corvex(raytraced + QStringList{nowhere}).exitCode, 1);
    EXPECT_FALSE(QFile::exists(raytracer + ".ran")) << "a picture that cannot be kept was made";
    for (const char* word : {"povray", "renderman"}) {
        const Outcome failed =
            Corvex({"render", "--raytracer", word, "--primitive", "cube", "--material",
                    "textures.bump=b.png", "--out", folder.PathOf("b.png")});
        EXPECT_TRUE(failed.errors.contains("exit code 3. It says: broken"))
            << failed.errors.toStdString();
        EXPECT_EQ(failed.errors.contains("RenderMan does not show: bump maps (shapes: 1)."),
                  QString(word) == "renderman");
    }
    qunsetenv("CORVEX_POVRAY");
    qunsetenv("CORVEX_RENDERMAN");
}

TEST(Converting, TellsWhatIsLostAndFailsForItOnlyWhenAsked)
{
    const SampleFolder folder;
    folder.Write("no.mtl", "newmtl no\nTf 1 0 0\nmap_Kd gone.png\n");
    const QString model =
        folder.Write("no.obj", "mtllib no.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl no\nf 1 2 3\n");
    const QString target = folder.PathOf("no.glb");
    const Outcome run = Corvex({"convert", model, target, "--json"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains("gone.png")) << run.errors.toStdString();
    int dropped = 0;
    QJsonObject last;
    for (const QString& line : run.output.trimmed().split('\n')) {
        last = QJsonDocument::fromJson(line.toUtf8()).object();
        dropped += last["outcome"] == "dropped" ? 1 : 0;
    }
    EXPECT_EQ(last["dropped"].toInt(-1), dropped);
    EXPECT_TRUE(run.output.contains("{\"written\":\"" + target + "\"}"));
    EXPECT_EQ(dropped, 2) << run.output.toStdString();
    ASSERT_TRUE(QFile::remove(target));
    EXPECT_EQ(Corvex({"convert", model, target, "--strict"}).exitCode, 1);
    EXPECT_EQ(Corvex({"convert", target, folder.PathOf("out.obj")}).exitCode, 0)
        << "it was written all the same";
    const QString whole = folder.Write("whole.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    EXPECT_EQ(Corvex({"convert", whole, target, "--strict"}).exitCode, 0);
    studio::SceneContent content;
    content.shapes = {studio::StudioShape("Ball", studio::SphereMesh(1.0F), {}).State()};
    const QString document = folder.PathOf("ball.corvex");
    static_cast<void>(studio::SceneDocument::Create(document.toStdString(), content,
                                                    folder.Path().toStdString()));
    const QString ball = folder.PathOf("ball.obj");
    EXPECT_EQ(Corvex({"convert", document, ball}).exitCode, 0);
    EXPECT_TRUE(CorvexTest::ContentOf(ball).contains("\no Ball\n"));
    const Outcome unwritten = Corvex({"convert", whole, folder.PathOf("no/such/a.gltf")});
    EXPECT_EQ(unwritten.exitCode, 1);
    EXPECT_TRUE(unwritten.errors.contains("no/such/a.")) << unwritten.errors.toStdString();
}

TEST(Tour, ShowsEveryStepAndLeavesTheUsersSettingsAlone)
{
    const SampleFolder pictures;
    const SampleFolder configuration;
    ASSERT_EQ(OutcomeOf(TOUR_PROGRAM, {pictures.Path()}, configuration).exitCode, 0);
    const QStringList names = QDir(pictures.Path()).entryList({"*.png"});
    EXPECT_GE(names.size(), 12);
    for (const QString& name : names) {
        EXPECT_FALSE(QImage(pictures.PathOf(name)).isNull()) << name.toStdString();
    }
    const QImage large(pictures.PathOf("21-at-200-per-cent.png"));
    EXPECT_EQ(large.size(), QSize(2000, 1400));
    EXPECT_FALSE(QDir(configuration.Path()).exists("Corvex"));
}

TEST(Tour, AStepThatFailsEndsItWithOne)
{
    const QString pictures = SampleFolder().Path();
    EXPECT_EQ(OutcomeOf(TOUR_PROGRAM, {pictures, "missing.obj", "--chapter", "large"}).exitCode, 1);
    EXPECT_EQ(OutcomeOf(TOUR_PROGRAM, {pictures, "--chapter", "none"}).exitCode, 1);
}

}  // namespace
