// The launcher as the control uses it, with the real POV-Ray and with scripts that misbehave.

#include "Testing.h"

namespace {

constexpr const char* kScene =
    "#version 3.7;\nglobal_settings { assumed_gamma 1.0 }\n"
    "camera { location -4*z look_at 0 }\n"
    "#include \"shared.inc\"\nsphere { 0 1 pigment { rgb x } finish { emission Full } }\n";
constexpr const char* kEndless = "#version 3.7;\nglobal_settings { assumed_gamma 1.0 }\n"
                                 "#while (1) #end\n";

class Launcher : public testing::Test {
protected:
    void Write(const QString& name, const QByteArray& content)
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
        file.write(content);
    }

    /// In a folder below, as the control writes it.
    void WriteJob(const QString& below, const QByteArray& scene)
    {
        base = below.isEmpty() ? QStringLiteral("~CVX7") : below + QStringLiteral("/~CVX7");
        QDir(folder.path()).mkpath(below.isEmpty() ? QStringLiteral(".") : below);
        const QString path = folder.filePath(base);
        const QString here = QFileInfo(path).path();
        Write(base + ".pov", scene);
        Write(QFileInfo(base).path() + "/shared.inc", "#declare Full = 1;\n");
        Write(base + ".ini", ("Input_File_Name=" + path +
                              ".pov\nWidth=64\nHeight=48\nOutput_File_Type=S\nQuality=11\n"
                              "Antialias=off\nDisplay=off\nLibrary_Path=" +
                              here + "\nOutput_File_Name=" + path + ".bmp\n")
                                 .toUtf8());
    }

    void Script(const QByteArray& body)
    {
        Write("fake.sh", "#!/bin/sh\n" + body);
        QFile::setPermissions(folder.filePath("fake.sh"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        UseRaytracer(folder.filePath("fake.sh"));
    }

    void UseRaytracer(const QString& program)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("CORVEX_POVRAY", program);
        process.setProcessEnvironment(environment);
    }

    void Start()
    {
        process.start(LAUNCHER_PROGRAM, {"/exit", "/nr", folder.filePath(base) + ".ini"});
        ASSERT_TRUE(process.waitForStarted());
    }

    int Run()
    {
        Start();
        EXPECT_TRUE(process.waitForFinished(60000));
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    QImage Picture() { return QImage(folder.filePath(base) + ".bmp"); }

    /// Names in the job's folder that are neither the scene, its settings nor its picture.
    QStringList Leftovers()
    {
        QStringList names = QFileInfo(folder.filePath(base))
                                .absoluteDir()
                                .entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
        for (const char* own : {"~CVX7.pov", "~CVX7.ini", "~CVX7.bmp", "fake.sh", "shared.inc"}) {
            names.removeAll(QLatin1String(own));
        }
        return names;
    }

    QTemporaryDir folder;
    QString base;
    QProcess process;
};

TEST_F(Launcher, DrawsAJobInWhateverFolder)
{
    for (const char* below : {"", "häßlich 石 тест, a \"quoted\" #1; b=[c] %d"}) {
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
    const QString second = folder.filePath(QString::fromUtf8("Ω/other"));
    for (const char* suffix : {".ini", ".pov"}) {
        QFile file(folder.filePath(base) + suffix);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        Write(QString::fromUtf8("Ω/other") + suffix,
              file.readAll().replace("~CVX7", "other").replace("rgb x", "rgb z"));
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
    WriteJob({}, "nonsense {");
    EXPECT_NE(Run(), 0);
    EXPECT_TRUE(Picture().isNull());
    EXPECT_TRUE(Leftovers().isEmpty());
}

TEST_F(Launcher, CancelEndsPovRayAndCleansUp)
{
    WriteJob({}, kEndless);
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
    WriteJob({}, kScene);
    Start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder.filePath("pid")); }, 5000));
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(10000));
    EXPECT_EQ(process.exitCode(), 128 + SIGKILL);
}

TEST_F(Launcher, ItsOwnEndEndsTheRaytracer)
{
    Script("echo $$ > \"${0%/*}/pid\"\nwhile :; do sleep 0.1; done\n");
    WriteJob({}, kScene);
    Start();
    QFile file(folder.filePath("pid"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return file.size() > 0; }, 5000));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const pid_t raytracer = file.readAll().trimmed().toInt();
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
    WriteJob({}, kScene);
    Write("povray.ini", "this is no settings file\n");
    Write("victim", "mine");
    ASSERT_TRUE(QFile::link(folder.filePath("victim"), folder.filePath("~CVX7.bmp")));
    Script("echo > ran\n");
    ASSERT_TRUE(QFile::rename(folder.filePath("fake.sh"), folder.filePath("povray")));
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", ":.:" + environment.value("PATH"));
    environment.remove("CORVEX_POVRAY");
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.path());
    EXPECT_EQ(Run(), 0) << process.readAllStandardError().toStdString();
    EXPECT_EQ(Picture().size(), QSize(64, 48));
    EXPECT_EQ(QFileInfo(folder.filePath("victim")).size(), 4);
    EXPECT_EQ(Leftovers(), QStringList({"povray", "povray.ini", "victim"}));
}

TEST_F(Launcher, PassesOnHowTheRaytracerEnded)
{
    WriteJob({}, kScene);
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
