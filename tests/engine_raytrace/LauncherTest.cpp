// The launcher as the control uses it, with the real POV-Ray and with scripts that misbehave.

#include "SampleFolder.h"

namespace {

constexpr const char* kScene =
    "#version 3.7;\nglobal_settings { assumed_gamma 1.0 }\n"
    "camera { location -4*z look_at 0 }\n"
    "#include \"shared.inc\"\nsphere { 0 1 pigment { rgb x } finish { emission Full } }\n";
constexpr const char* kEndless = "#version 3.7;\nglobal_settings { assumed_gamma 1.0 }\n"
                                 "#while (1) #end\n";

class Launcher : public testing::Test {
protected:
    /// In a folder below, as the control writes it.
    void WriteJob(const QString& below, const QByteArray& scene)
    {
        base = below + QStringLiteral("/~CVX7");
        const QString path = folder.PathOf(base);
        folder.Write(base + ".pov", scene);
        folder.Write(below + "/shared.inc", "#declare Full = 1;\n");
        folder.Write(base + ".ini", ("Input_File_Name=" + path +
                                     ".pov\nWidth=64\nHeight=48\nOutput_File_Type=S\nQuality=11\n"
                                     "Antialias=off\nDisplay=off\nLibrary_Path=" +
                                     folder.PathOf(below) + "\nOutput_File_Name=" + path + ".bmp\n")
                                        .toUtf8());
    }

    void Script(const QByteArray& body)
    {
        const QString program = folder.Write("fake.sh", "#!/bin/sh\n" + body);
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        UseRaytracer(program);
    }

    void UseRaytracer(const QString& program)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("CORVEX_POVRAY", program);
        process.setProcessEnvironment(environment);
    }

    void Start()
    {
        process.start(LAUNCHER_PROGRAM, {"/exit", "/nr", folder.PathOf(base) + ".ini"});
        ASSERT_TRUE(process.waitForStarted());
    }

    int Run()
    {
        Start();
        EXPECT_TRUE(process.waitForFinished(60000));
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    QImage Picture() { return QImage(folder.PathOf(base) + ".bmp"); }

    /// Names in the job's folder that are neither the scene, its settings nor its picture.
    QStringList Leftovers()
    {
        const QDir job = QFileInfo(folder.PathOf(base)).absoluteDir();
        QStringList names = job.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        for (const char* own : {"~CVX7.pov", "~CVX7.ini", "~CVX7.bmp", "fake.sh", "shared.inc"}) {
            names.removeAll(QLatin1String(own));
        }
        return names;
    }

    CorvexTest::SampleFolder folder;
    QString base;
    QProcess process;
};

TEST_F(Launcher, DrawsAJobInWhateverFolder)
{
    for (const char* below : {".", "häßlich 石 тест, a \"quoted\" #1; b=[c] %d"}) {
        WriteJob(QString::fromUtf8(below), kScene);
        EXPECT_EQ(Run(), 0) << below << process.readAllStandardError().toStdString();
        ASSERT_EQ(Picture().size(), QSize(64, 48)) << below;
        EXPECT_GT(Picture().pixelColor(32, 24).red(), 200) << below;
        EXPECT_TRUE(Leftovers().isEmpty()) << Leftovers().join(' ').toStdString();
    }
    EXPECT_TRUE(process.readAllStandardError().contains("Rendered"));
}

TEST_F(Launcher, TwoAtOnceInOneFolderDoNotMeet)
{
    WriteJob("Ω", kScene);
    Start();
    QProcess other;
    const QString second = folder.PathOf(QString::fromUtf8("Ω/other"));
    for (const char* suffix : {".ini", ".pov"}) {
        QByteArray content = CorvexTest::ContentOf(folder.PathOf(base) + suffix);
        folder.Write(QString::fromUtf8("Ω/other") + suffix,
                     content.replace("~CVX7", "other").replace("rgb x", "rgb z"));
    }
    other.start(LAUNCHER_PROGRAM, {"/exit", "/nr", second + ".ini"});
    ASSERT_TRUE(other.waitForFinished(60000));
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_GT(Picture().pixelColor(32, 24).red(), 200);
    EXPECT_GT(QImage(second + ".bmp").pixelColor(32, 24).blue(), 200);
    EXPECT_EQ(Leftovers(), QStringList({"other.bmp", "other.ini", "other.pov"}));
}

TEST_F(Launcher, AFaultySceneIsAnErrorWithoutAPicture)
{
    WriteJob(".", "nonsense {");
    EXPECT_NE(Run(), 0);
    EXPECT_TRUE(Picture().isNull());
    EXPECT_TRUE(Leftovers().isEmpty());
}

TEST_F(Launcher, CancelEndsPovRayAndCleansUp)
{
    WriteJob(".", kEndless);
    Start();
    QTest::qWait(600);
    QElapsedTimer timer;
    timer.start();
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(10000));
    EXPECT_LT(timer.elapsed(), 4000);
    EXPECT_NE(process.exitCode(), 0);
    EXPECT_TRUE(Leftovers().isEmpty()) << Leftovers().join(' ').toStdString();
}

TEST_F(Launcher, ARaytracerThatIgnoresTheRequestIsKilled)
{
    Script("trap '' TERM\necho $$ > \"${0%/*}/pid\"\nwhile :; do sleep 0.1; done\n");
    WriteJob(".", kScene);
    Start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder.PathOf("pid")); }, 5000));
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(10000));
    EXPECT_EQ(process.exitCode(), 128 + SIGKILL);
}

TEST_F(Launcher, ItsOwnEndEndsTheRaytracer)
{
    Script("echo $$ > \"${0%/*}/pid\"\nwhile :; do sleep 0.1; done\n");
    WriteJob(".", kScene);
    Start();
    const auto pid = [&] { return CorvexTest::ContentOf(folder.PathOf("pid")).toInt(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return pid() > 0; }, 5000));
    const pid_t raytracer = pid();
    process.kill();
    process.waitForFinished();
    EXPECT_TRUE(QTest::qWaitFor([&] { return kill(raytracer, 0) != 0; }, 5000));

    // What it could not remove any more, the next one does.
    EXPECT_EQ(Leftovers().size(), 2);
    Script("exit 0\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(Leftovers(), QStringList({"pid"}));
}

// Whoever shares the folder must be able to have neither his settings nor his program used, nor the
// picture written to where a link of his leads.
TEST_F(Launcher, TakesNothingThatIsPlantedBesideAJob)
{
    WriteJob(".", kScene);
    folder.Write("povray.ini", "this is no settings file\n");
    folder.Write("victim", "mine");
    ASSERT_TRUE(QFile::link(folder.PathOf("victim"), folder.PathOf("~CVX7.bmp")));
    Script("echo > ran\n");
    ASSERT_TRUE(QFile::rename(folder.PathOf("fake.sh"), folder.PathOf("povray")));
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", ":.:" + environment.value("PATH"));
    environment.remove("CORVEX_POVRAY");
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.Path());
    EXPECT_EQ(Run(), 0) << process.readAllStandardError().toStdString();
    EXPECT_EQ(Picture().size(), QSize(64, 48));
    EXPECT_EQ(QFileInfo(folder.PathOf("victim")).size(), 4);
    EXPECT_EQ(Leftovers(), QStringList({"povray", "povray.ini", "victim"}));
}

TEST_F(Launcher, PassesOnHowTheRaytracerEnded)
{
    WriteJob(".", kScene);
    Script("echo progress >&2\nexit 7\n");
    EXPECT_EQ(Run(), 7);
    EXPECT_TRUE(process.readAllStandardError().contains("progress"));
    Script("kill -SEGV $$\n");
    EXPECT_EQ(Run(), 128 + SIGSEGV);
    UseRaytracer("/no/such/povray");
    EXPECT_EQ(Run(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("/no/such/povray"));
    base = "missing";
    EXPECT_EQ(Run(), 1);
}

}  // namespace
