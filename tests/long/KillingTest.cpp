#include "Household.h"
#include "LibraryFile.h"
#include "QtSettingsStore.h"

namespace {

using namespace std::chrono_literals;
using LongTest::Household;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

const QString kSettings = QStringLiteral("home/config/Corvex");

/// Whatever is killed, at whatever moment: the next look finds the old or the new, whole.
class Killing : public testing::Test {
protected:
    static void SetUpTestSuite() { household = std::make_unique<Household>(); }
    static void TearDownTestSuite() { household.reset(); }

    /// Rounds until so many processes were killed before they were done.
    template <typename Round>
    static void Kill(int count, const Round& round)
    {
        for (const int goal = household->kills + count; household->kills < goal;) {
            round();
            ASSERT_FALSE(HasFailure()) << "after " << household->kills << " kills";
        }
    }

    /// What is made is that of the one command or of the other.
    static void KillOutput(const char* file, int count, const std::array<QStringList, 2>& commands)
    {
        const QString path = household->PathOf(QStringLiteral("work/") + file);
        std::array<QByteArray, 2> whole;
        QElapsedTimer clock;
        for (std::size_t i = 0; i < 2; ++i) {
            clock.start();
            ASSERT_EQ(household->Run(commands[i]), 0) << file;
            whole[i] = CorvexTest::ContentOf(path);
        }
        const std::chrono::milliseconds usual(clock.elapsed() * 5 / 4);
        ASSERT_NE(whole[0], whole[1]) << file;
        std::size_t now = 1;
        Kill(count, [&] {
            const std::size_t next = 1 - now;
            const bool isDone = household->RunAndKill(commands[next], usual);
            const QByteArray found = CorvexTest::ContentOf(path);
            EXPECT_TRUE(found == whole[next] || (!isDone && found == whole[now])) << file;
            now = found == whole[next] ? next : now;
        });
    }

    static inline std::unique_ptr<Household> household;
};

using Names = std::vector<std::string>;

Names NamesIn(const QString& library)
{
    if (!QFile::exists(library)) {
        return {};
    }
    auto file = studio::LibraryFile::Open(library.toStdString(), studio::LibraryKind::Materials);
    EXPECT_THAT(file.StructureProblems(), IsEmpty());
    Names names;
    for (std::int32_t index = 0; index < file.Count(); ++index) {
        EXPECT_FALSE(file.JsonAt(index).empty());
        names.push_back(file.NameAt(index));
    }
    return names;
}

/// Arguments of a command that changes the library, whose names become those it leaves.
QStringList NextChange(std::mt19937& dice, Names& names, int number)
{
    const auto kind = dice() % 12;
    if (kind > 9 && !names.empty()) {
        return {"library", "set",
                "a.cvm",   QString::fromStdString(names.back()),
                "--tag",   "number " + QString::number(number)};
    }
    if (kind < 2 && !names.empty()) {
        const std::string first = names.front();
        std::erase(names, first);
        return {"library", "remove", "a.cvm", QString::fromStdString(first)};
    }
    if (kind == 2) {
        return {"library", "empty-trash", "a.cvm"};
    }
    if (kind < 5) {
        names.insert(names.end(), {"one", "two", "three"});
        return {"library", "import", "a.cvm", "three.json"};
    }
    names.push_back("entry " + std::to_string(number));
    return {"library", "add", "a.cvm", "--name", QString::fromStdString(names.back())};
}

TEST_F(Killing, LibraryChanges)
{
    for (const char* name : {"one", "two", "three"}) {
        ASSERT_EQ(household->Run({"library", "add", "three.cvm", "--name", name}), 0);
    }
    ASSERT_EQ(household->Run({"library", "export", "three.cvm", "--out", "three.json"}), 0);
    const QString library = household->PathOf("work/a.cvm");
    Names names;
    int number = 0;
    Kill(180, [&] {
        if (++number % 50 == 0) {
            QFile::remove(library);
            names.clear();
        }
        const Names before = names;
        const QStringList change = NextChange(household->dice, names, number);
        const bool isDone = household->RunAndKill(change, 150ms);
        const Names found = NamesIn(library);
        EXPECT_TRUE(found == names || (!isDone && found == before))
            << change.join(' ').toStdString();
        names = found;
    });
}

TEST_F(Killing, SettingsWrites)
{
    int written = 0;
    Kill(80, [&] {
        QProcess writer;
        writer.setProcessEnvironment(household->Environment());
        writer.start(SETTINGS_WRITER, {QString::number(written + 1)});
        ASSERT_TRUE(writer.waitForReadyRead(30000));
        writer.waitForFinished(static_cast<int>(household->dice() % 30));
        writer.kill();
        writer.waitForFinished();
        ++household->kills;
        const QByteArray told = writer.readAllStandardOutput();
        const int last = told.first(told.lastIndexOf('\n')).split('\n').last().toInt();
        CorvexMaterial::QtSettingsStore settings(household->PathOf(kSettings));
        const auto numberOf = [&](const char* key) {
            return std::stoi(settings.Read({"Written", "Numbers", key}).value_or("0"));
        };
        written = numberOf("First");
        EXPECT_EQ(numberOf("Second"), written);
        EXPECT_TRUE(written == last || written == last + 1) << written << " after " << last;
    });
}

TEST_F(Killing, Exports)
{
    for (const char* name : {"x", "y"}) {
        ASSERT_EQ(household->Run({"library", "add", QString(name) + ".cvm", "--name", name}), 0);
    }
    for (const char* file : {"out.json", "out.mtl", "out.mtlx"}) {
        KillOutput(file, 20,
                   {QStringList{"library", "export", "x.cvm", "--out", file},
                    QStringList{"library", "export", "y.cvm", "--out", file}});
    }
    for (const char* file : {"scene.pov", "scene.rib"}) {
        KillOutput(file, 30,
                   {QStringList{"export", file, MODEL_FOLDER "/still-life.obj"},
                    QStringList{"export", file, "--primitive", "torus"}});
    }
    const QStringList create{"scene", "create", MODEL_FOLDER "/still-life.obj", "--out",
                             "made.corvex"};
    KillOutput("made.corvex", 20, {create, create + QStringList{"--embed-textures"}});
    EXPECT_EQ(household->Run(create), 0) << "it takes away what others left unfinished";
}

TEST_F(Killing, Renders)
{
    const auto render = [](const char* file, const char* colour) -> QStringList {
        const QString material = QStringLiteral("colour=") + colour;
        return {"render", "--primitive", "torus", "--out", file, "--material", material};
    };
    KillOutput("live.png", 60, {render("live.png", "Bronze"), render("live.png", "Gold")});
    ASSERT_EQ(household->Run(render("traced.png", "Bronze") << "--raytrace"), 0);
    Kill(20, [&] {
        household->RunAndKill(render("traced.png", "Gold") << "--raytrace", 1500ms);
        EXPECT_FALSE(QImage(household->PathOf("work/traced.png")).isNull());
    });
}

TEST_F(Killing, WindowsThatOpen)
{
    Kill(20, [&] {
        if (household->kills % 5 == 0) {
            QDir(household->PathOf("home/data")).removeRecursively();
        }
        household->RunAndKill({MODEL_FOLDER "/still-life.obj"}, 3000ms);
    });
}

TEST_F(Killing, LeavesNothingAfterTheNextStart)
{
    EXPECT_TRUE(QTest::qWaitFor([] { return household->Running().isEmpty(); }, 10000))
        << household->Running().join('\n').toStdString();
    EXPECT_EQ(household->OpenAndCloseWindow(), 0);
    CorvexMaterial::QtSettingsStore settings(household->PathOf(kSettings));
    settings.Write({"Written", "Numbers", "Third"}, "3");
    settings.Flush("Written");

    EXPECT_THAT(household->FilesIn("temp"), IsEmpty());
    EXPECT_THAT(household->FilesIn("work"),
                ElementsAre("a.cvm", "live.png", "made.corvex", "out.json", "out.mtl", "out.mtlx",
                            "scene.pov", "scene.rib", "three.cvm", "three.json", "traced.png",
                            "x.cvm", "y.cvm"));
    EXPECT_THAT(household->FilesIn(kSettings), ElementsAre("CorvexStudio.ini", "Written.ini"));
    const QString data = QStringLiteral("home/data/CorvexStudio");
    constexpr const char* kDelivered =
        "Gems.cv[mt]|(Textures|Environments|Simulations)(/[a-z-]+[.](jpg|png))?";
    EXPECT_THAT(household->FilesIn(data), Each(MatchesRegex(kDelivered)));
    for (const char* library : {"/Gems.cvm", "/Gems.cvt"}) {
        EXPECT_EQ(household->Run({"library", "validate", household->PathOf(data + library)}), 0);
    }
}

}  // namespace
