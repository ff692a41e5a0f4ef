#include "RunProgram.h"
#include "SampleMaterials.h"

#include "LibraryReading.h"

#include <QJsonDocument>

namespace {

using CorvexTest::Outcome;
using LibraryTest::NamesIn;
using namespace std::string_literals;
using testing::ElementsAre;

studio::NewEntry Broken(const std::string& name)
{
    auto entry = LibraryTest::EntryNamed(name);
    entry.json = "{";
    return entry;
}

class LibraryCommands : public testing::Test {
protected:
    Outcome Library(const QStringList& arguments)
    {
        return CorvexTest::RunProgram(STUDIO_PROGRAM, QStringList("library") + arguments,
                                      [this](QProcess& program) {
                                          auto own = QProcessEnvironment::systemEnvironment();
                                          own.insert("XDG_DATA_HOME", PathOf("own"));
                                          program.setProcessEnvironment(own);
                                      });
    }
    void Expect(const QStringList& arguments)
    {
        const Outcome outcome = Library(arguments);
        EXPECT_EQ(outcome.exitCode, 0)
            << arguments.join(' ').toStdString() << outcome.errors.toStdString();
    }
    [[nodiscard]] QString PathOf(const char* name) const
    {
        return QString::fromStdString(m_temporary.PathOf(name));
    }

    LibraryTest::TemporaryLibrary m_temporary;
    QString m_library = QString::fromStdString(m_temporary.Path());
};

TEST_F(LibraryCommands, AddListExportImportRemoveRestore)
{
    Expect({"add", m_library, "--name", "Clear \xC3\xA4", "--material", "transparency=80"});
    Expect({"add", m_library, "--material", "colour=gold"});
    EXPECT_EQ(Library({"list", m_library}).output, QString::fromUtf8("Clear \xC3\xA4\nGold\n"));
    const QString found = Library({"list", m_library, "--find", "color~gold", "--json"}).output;
    EXPECT_TRUE(found.contains("\"name\":\"Gold\"") && found.count('\n') == 1)
        << found.toStdString();

    Expect({"export", m_library, "--out", PathOf("all.json")});
    Expect({"import", PathOf("new.cvm"), PathOf("all.json"), PathOf("all.json")});
    auto copy =
        studio::LibraryFile::Open(m_temporary.PathOf("new.cvm"), studio::LibraryKind::Materials);
    EXPECT_THAT(NamesIn(copy), ElementsAre("Clear \xC3\xA4", "Gold", "Clear \xC3\xA4", "Gold"));
    EXPECT_EQ(studio::ReadMaterial(copy, 0).material.Transparency, 80);
    EXPECT_EQ(copy.ThumbnailAt(3).substr(1, 3), "PNG");

    EXPECT_EQ(Library({"remove", m_library, "gold", "Gold", "--json"}).output, "{\"removed\":1}\n");
    EXPECT_EQ(Library({"trash", m_library}).output, "Gold\n");
    Expect({"restore", m_library, "GOLD"});
    Expect({"remove", m_library, "Gold"});
    Expect({"empty-trash", m_library});
    EXPECT_EQ(Library({"trash", m_library}).output, "");
    Expect({"validate", m_library});
}

TEST_F(LibraryCommands, SetWhatIsNotedOfEntriesAndHandItOn)
{
    Expect({"add", m_library, "--name", "Oak", "--tag", "wood", "--licence", "CC0"});
    Expect({"add", m_library, "--name", "Jade"});
    Expect({"set", m_library, "oak", "--tag", "Bark", "--tag", "WOOD", "--untag", "none",
            "--collection", "House", "--author", "Ann  Lee", "--source", "https://x.example"});
    EXPECT_EQ(Library({"list", m_library, "--find", "tag:bark author:ann", "--json"}).output,
              Library({"list", m_library, "--find", "collection=house", "--json"}).output);
    Expect({"export", m_library, "--out", PathOf("all.json")});
    Expect({"import", PathOf("new.cvm"), PathOf("all.json"), m_library});
    auto copy =
        studio::LibraryFile::Open(m_temporary.PathOf("new.cvm"), studio::LibraryKind::Materials);
    const studio::EntryDetails all{
        "Ann Lee", "CC0", "https://x.example", {"Bark", "wood"}, {"House"}};
    EXPECT_EQ(copy.DetailsOf(copy.IdAt(0)), all);
    EXPECT_EQ(copy.DetailsOf(copy.IdAt(2)), all);

    EXPECT_EQ(Library({"set", m_library, "--find", "tag:bark", "--untag", "bark", "--author", "",
                       "--rating", "4", "--favourite", "yes"})
                  .output,
              "Entries changed: 1.\n");
    const QString found = Library({"list", m_library, "--find", "rating>3 fav:yes"}).output;
    EXPECT_EQ(found, "Oak\n");
    const QString json = Library({"list", m_library, "--json"}).output.section('\n', 0, 0);
    EXPECT_TRUE(json.contains("\"tags\":[\"wood\"]") && !json.contains("author") &&
                json.contains("\"rating\":4"))
        << json.toStdString();
    EXPECT_EQ(Library({"set", m_library, "Elm", "--tag", "x"}).exitCode, 1);
}

TEST_F(LibraryCommands, TellEveryProblemAndEndWithOne)
{
    studio::NamedMaterial named{"textured", {}};
    named.material.Textures.bump = "/no/such/image.png";
    auto odd = LibraryTest::EntryNamed("odd");
    odd.json = R"({"wrap":9})";
    m_temporary.Open().Add(std::vector{studio::EntryOfMaterial(named, "/"), odd});
    const Outcome checked = Library({"validate", m_library, "--json"});
    EXPECT_EQ(checked.exitCode, 1);
    EXPECT_TRUE(checked.errors.contains("/no/such/image.png"));
    EXPECT_TRUE(checked.errors.contains("\"odd\": \"wrap\""));
    EXPECT_EQ(checked.output, "{\"checked\":2,\"good\":false}\n");
    m_temporary.Open().Add(std::vector{LibraryTest::EntryNamed("good"), Broken("broken")});
    const Outcome written = Library({"export", m_library, "--out", PathOf("rest.mtl")});
    EXPECT_EQ(written.exitCode, 1);
    EXPECT_TRUE(written.errors.contains("\"broken\"") && written.errors.contains("\"odd\""));
    EXPECT_TRUE(written.output.contains("Materials written: 3.")) << written.output.toStdString();
    const Outcome missing = Library({"list", PathOf("missing.cvm")});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.errors.contains("missing.cvm"));
    const Outcome unread = Library({"import", PathOf("new.cvm"), PathOf("missing.json")});
    EXPECT_EQ(unread.exitCode, 1);
    EXPECT_FALSE(QFile::exists(PathOf("new.cvm"))) << "nothing is made for nothing";
}

TEST_F(LibraryCommands, LetNoNameActOnATerminal)
{
    const std::string name = "a\x1B[2J\tb\0c\nd\u009B\u202Ee\U000E0041 \\ g\u00FC\u2713"s;
    m_temporary.Open().Add(std::vector{LibraryTest::EntryNamed(name), Broken(name)});
    const QString shown = R"(a\u001b[2J\u0009b\u0000c\u000ad\u009b\u202ee\udb40\udc41 \ g)" +
                          QStringLiteral("\u00FC\u2713");
    EXPECT_EQ(Library({"list", m_library}).output, shown + '\n' + shown + '\n');
    EXPECT_TRUE(
        Library({"validate", m_library})
            .errors.contains(QString(shown).replace("\\u000a", "\n  ").replace("\\u0000", "\\0")));
    const QString json = Library({"list", m_library, "--json"}).output.section('\n', 0, 0);
    EXPECT_FALSE(json.contains(QChar(0x9B)) || json.contains(QChar(0x202E)));
    EXPECT_EQ(QJsonDocument::fromJson(json.toUtf8())["name"].toString().toStdString(), name);
}

TEST_F(LibraryCommands, RestoreWhatIsNamedAndAddNoFileThatIsNoPicture)
{
    for (const char* name : {"Oak", "Elm"}) {
        Expect({"add", m_library, "--name", name});
        Expect({"remove", m_library, name});
    }
    Expect({"restore", m_library, "oak"});
    EXPECT_EQ(Library({"list", m_library}).output, "Oak\n");
    EXPECT_EQ(Library({"add", PathOf("a.cvt"), m_library}).exitCode, 1);
    EXPECT_EQ(Library({"list", PathOf("a.cvt")}).output, "");
}

TEST_F(LibraryCommands, ExplainWrongUseAndEndWithTwo)
{
    for (const char* line :
         {"", "paint a.cvm", "list", "list a.cvm b.cvm", "export a.cvm", "import a.cvm",
          "list a.cvm --shard 3/2", "list a.cvm --shard 0/1", "list a.cvm --find shine>3",
          "list a.cvm --nonsense", "add a.cvm --material colour=mud", "add a.cvm b.png",
          "add a.cvt", "add a.cvt b.png --name c", "set a.cvm Oak", "set a.cvm --tag x",
          "set a.cvm Oak --rating 6", "set a.cvm Oak --favourite maybe"}) {
        const Outcome outcome = Library(QString(line).split(' ', Qt::SkipEmptyParts));
        EXPECT_EQ(outcome.exitCode, 2) << line;
        EXPECT_TRUE(outcome.errors.contains("--help")) << line;
    }
}

// As the manual has it.
TEST_F(LibraryCommands, DrawThumbnailsInParallelProcesses)
{
    std::vector<studio::NewEntry> entries;
    for (int i = 0; i < 11; ++i) {
        entries.push_back(LibraryTest::EntryNamed(std::to_string(i)));
    }
    m_temporary.Open().Add(entries);
    const QString script =
        QStringLiteral("parallel -j 2 %1 library thumbnails %2 --shard {}/3 ::: 1 2 3")
            .arg(STUDIO_PROGRAM, m_library);
    const Outcome run = CorvexTest::RunProgram("sh", {"-c", script});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    auto library = m_temporary.Open();
    for (std::int32_t index = 0; index < library.Count(); ++index) {
        EXPECT_FALSE(library.ThumbnailAt(index).empty()) << index;
    }
    Expect({"thumbnails", m_library, "--out", PathOf("pictures"), "--shard", "2/3"});
    EXPECT_EQ(QDir(PathOf("pictures")).entryList(QDir::Files),
              QStringList({"000001.png", "000004.png", "000007.png", "000010.png"}));
    EXPECT_EQ(Library({"thumbnails", m_library, "--missing"}).output, "Thumbnails drawn: 0.\n");
}

}  // namespace
