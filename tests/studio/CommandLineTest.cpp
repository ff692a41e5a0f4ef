#include "Testing.h"

namespace {

struct Outcome {
    int exitCode = -1;
    QString output;
    QString errors;
};

Outcome RunProgram(const char* program, const QStringList& arguments,
                   const QTemporaryDir& configuration = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", configuration.path());
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.waitForFinished(240000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

Outcome Corvex(const QStringList& arguments)
{
    return RunProgram(COMMAND_PROGRAM, arguments);
}

Outcome Tour(const QStringList& arguments, const QTemporaryDir& configuration = {})
{
    return RunProgram(TOUR_PROGRAM, arguments, configuration);
}

TEST(CommandLine, VersionAndHelpNeedNoDisplay)
{
    qunsetenv("QT_QPA_PLATFORM");
    for (const char* program : {COMMAND_PROGRAM, STUDIO_PROGRAM}) {
        EXPECT_TRUE(RunProgram(program, {"--version"}).output.startsWith("corvex 1.")) << program;
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
    for (const char* line : {"--nonsense", "one.obj", "one.obj two.obj", "render --out refused.png",
                             "render a.obj", "render a.obj --primitive cube --out refused.png",
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
    QTemporaryDir folder;
    const QString library = folder.filePath("a.cvm");
    ASSERT_EQ(Corvex({"library", "add", library, "--name", "Oak"}).exitCode, 0);
    for (const char* line : {"--help", "--version", "library list %1", "library list %1 --json",
                             "library validate %1", "library add %1 --name Elm"}) {
        QProcess process;
        process.setStandardOutputFile("/dev/full");
        process.start(QStringLiteral(STUDIO_PROGRAM),
                      QString(line).replace("%1", library).split(' '));
        process.waitForFinished(60000);
        EXPECT_EQ(process.exitCode(), 1) << line;
        EXPECT_EQ(process.readAllStandardError().count("No space left on device"), 1) << line;
    }
}

class Rendering : public testing::Test {
protected:
    QImage Draw(const QStringList& what)
    {
        const QString file = folder.filePath("picture.png");
        const Outcome run =
            Corvex(QStringList{"render", "--size", "160x120", "--out", file} + what);
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
        errors = run.errors;
        return QImage(file);
    }

    QTemporaryDir folder;
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

    const auto write = [&](const char* name, const char* text) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("coloured.ply",
          "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\n"
          "property float z\nproperty uchar red\nproperty uchar green\nproperty uchar blue\n"
          "element face 1\nproperty list uchar int vertex_indices\nend_header\n"
          "0 0 0 255 0 0\n1 0 0 0 255 0\n0 1 0 0 0 255\n3 0 1 2\n");
    Draw({folder.filePath("coloured.ply")});
    EXPECT_TRUE(errors.contains("a surface has one colour")) << errors.toStdString();

    write("no.png", "no picture");
    write("no.mtl", "newmtl no\nmap_Kd no.png\n");
    write("no.obj", "mtllib no.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl no\nf 1 2 3\n");
    Draw({folder.filePath("no.obj")});
    EXPECT_TRUE(errors.contains("no.png cannot be read")) << errors.toStdString();
}

TEST_F(Rendering, FailuresNameTheFileAndEndWithOne)
{
    const QString missing = folder.filePath("missing.obj");
    const Outcome unread = Corvex({"render", missing, "--out", folder.filePath("a.png")});
    EXPECT_EQ(unread.exitCode, 1);
    EXPECT_TRUE(unread.errors.contains("missing.obj"));
    const QString nowhere = folder.filePath("no/such/folder/a.png");
    const Outcome unwritten = Corvex({"render", "--primitive", "cube", "--out", nowhere});
    EXPECT_EQ(unwritten.exitCode, 1);
    EXPECT_TRUE(unwritten.errors.contains(nowhere));

    const QString raytracer = folder.filePath("raytracer");
    QFile script(raytracer);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\ntouch \"$0.ran\"\necho broken\nexit 3\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    qputenv("CORVEX_POVRAY", raytracer.toUtf8());
    qputenv("CORVEX_RENDERMAN", raytracer.toUtf8());
    const QStringList raytraced{"render", "--raytrace", "--primitive", "cube", "--out"};
    EXPECT_EQ(Corvex(raytraced + QStringList{nowhere}).exitCode, 1);
    EXPECT_FALSE(QFile::exists(raytracer + ".ran")) << "a picture that cannot be kept was made";
    for (const char* word : {"povray", "renderman"}) {
        const Outcome failed =
            Corvex({"render", "--raytracer", word, "--primitive", "cube", "--material",
                    "textures.bump=b.png", "--out", folder.filePath("b.png")});
        EXPECT_TRUE(failed.errors.contains("exit code 3. It says: broken"))
            << failed.errors.toStdString();
        EXPECT_EQ(failed.errors.contains("RenderMan does not show: bump maps (shapes: 1)."),
                  QString(word) == "renderman");
    }
    qunsetenv("CORVEX_POVRAY");
    qunsetenv("CORVEX_RENDERMAN");
}

TEST(Tour, ShowsEveryStepAndLeavesTheUsersSettingsAlone)
{
    const QTemporaryDir pictures;
    const QTemporaryDir configuration;
    ASSERT_EQ(Tour({pictures.path()}, configuration).exitCode, 0);
    const QStringList names = QDir(pictures.path()).entryList({"*.png"});
    EXPECT_GE(names.size(), 12);
    for (const QString& name : names) {
        EXPECT_FALSE(QImage(pictures.filePath(name)).isNull()) << name.toStdString();
    }
    const QImage large(pictures.filePath("21-at-200-per-cent.png"));
    EXPECT_EQ(large.size(), QSize(2000, 1400));
    EXPECT_FALSE(QDir(configuration.path()).exists("Corvex"));
}

TEST(Tour, AStepThatFailsEndsItWithOne)
{
    const QTemporaryDir pictures;
    EXPECT_EQ(Tour({pictures.path(), "missing.obj", "--chapter", "large"}).exitCode, 1);
    EXPECT_EQ(Tour({pictures.path(), "--chapter", "none"}).exitCode, 1);
}

}  // namespace
