#include "SampleMaterials.h"

#include "LibraryReading.h"

#include <QtEndian>

#include <numeric>

#include <sqlite3.h>
#include <sys/stat.h>

namespace {

using LibraryTest::ErrorOf;
using LibraryTest::TemporaryLibrary;
using testing::AllOf;
using testing::HasSubstr;

void Sql(const std::string& path, const char* statements)
{
    sqlite3* handle = nullptr;
    sqlite3_open(path.c_str(), &handle);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    char* error = nullptr;
    sqlite3_exec(handle, statements, nullptr, nullptr, &error);
    EXPECT_EQ(error, nullptr) << error;
    sqlite3_close(handle);
}

void Fill(const TemporaryLibrary& temporary, int entries)
{
    std::vector<studio::NewEntry> all;
    for (int i = 0; i < entries; ++i) {
        all.push_back(studio::EntryOfMaterial(
            {"entry " + std::to_string(i), LibraryTest::WholeMaterial()}, "/"));
        all.back().png.assign(300, 'x');
    }
    temporary.Open().Add(all);
}

using Step = std::function<void(const TemporaryLibrary&)>;

Step Statements(const char* statements)
{
    return [statements](const auto& temporary) { Sql(temporary.Path(), statements); };
}

QByteArray Patched(QByteArray bytes, int offset, const QByteArray& patch)
{
    return bytes.replace(offset, patch.size(), patch);
}

Step Bytes(int offset, const QByteArray& patch)
{
    return [=](const auto& temporary) {
        temporary.SetBytes(Patched(temporary.Bytes(), offset, patch));
    };
}

struct Damage {
    const char* name;
    Step apply;
    const char* cause;
};

const Damage kDamages[] = {
    {"Empty", [](const auto& t) { t.SetBytes({}); }, "it is empty"},
    {"Text", [](const auto& t) { t.SetBytes("Not a library at all\n"); }, "not a library"},
    {"HeaderOnly", [](const auto& t) { t.SetBytes(t.Bytes().first(100)); }, "truncated"},
    {"LastPageGone", [](const auto& t) { t.SetBytes(t.Bytes().chopped(4096)); }, "truncated"},
    {"OtherKind", Bytes(68, "CvxT"), "texture library"},
    {"OtherProgram", Bytes(68, "abcd"), "another program"},
    {"LaterVersion", Statements("PRAGMA user_version = 7"),
     "later version of the studio (format 7"},
    {"WriteAheadLog", Bytes(18, "\x02\x02"), "header"},
    {"SchemaOverwritten", Bytes(100, QByteArray(3000, '\xAA')), "damaged"},
    {"ViewAsTable",
     Statements("ALTER TABLE entries RENAME TO hidden; DROP INDEX entries_in_order;"
                "DROP INDEX entries_by_name; CREATE VIEW entries AS SELECT * FROM hidden"),
     "not those of a library"},
    {"ViewWithTheTablesText",
     Statements("PRAGMA writable_schema = 1;"
                "UPDATE sqlite_schema SET type = 'view' WHERE name = 'contents'"),
     "damaged"},
    {"Trigger",
     Statements("CREATE TRIGGER gone AFTER INSERT ON entries BEGIN DELETE FROM contents; END"),
     "not those of a library"},
    {"TableMissing", Statements("DROP TABLE thumbnails"), "are missing"},
};

class RefusedLibrary : public testing::TestWithParam<Damage> {};

TEST_P(RefusedLibrary, IsNamedWithTheCauseAndLeftAsItWas)
{
    const TemporaryLibrary temporary;
    Fill(temporary, 40);
    GetParam().apply(temporary);
    const QByteArray before = temporary.Bytes();
    EXPECT_THAT(ErrorOf([&] { static_cast<void>(temporary.Open()); }),
                AllOf(HasSubstr(temporary.Path()), HasSubstr(GetParam().cause)));
    EXPECT_EQ(temporary.Bytes(), before);
    const QDir folder(QString::fromStdString(temporary.PathOf("")));
    EXPECT_EQ(folder.entryList(QDir::Files), QStringList("some.cvm"));
}

INSTANTIATE_TEST_SUITE_P(Files, RefusedLibrary, testing::ValuesIn(kDamages),
                         [](const auto& row) { return row.param.name; });

QByteArray Word(qsizetype value)
{
    QByteArray bytes(4, 0);
    qToBigEndian(static_cast<quint32>(value), bytes.data());
    return bytes;
}

const QByteArray kJournalMagic = QByteArray::fromHex("d9d505f920a163d7");

// As a crash leaves it: the first page to be put back, if it is given.
QByteArray JournalOf(const TemporaryLibrary& temporary, const QByteArray& page = {})
{
    const QByteArray library = temporary.Bytes();
    QByteArray journal = kJournalMagic + Word(page.isEmpty() ? 0 : 1) + Word(0) +
                         Word(library.size() / 4096) + Word(512) + Word(4096);
    journal.resize(512);
    if (!page.isEmpty()) {
        qsizetype sum = 0;
        for (qsizetype at = 4096 - 200; at > 0; at -= 200) {
            sum += static_cast<unsigned char>(page[at]);
        }
        journal += Word(1) + page + Word(sum);
    }
    return journal;
}

/// A library whose journal somebody else has made, and a file that is none of SQLite's business.
struct Scene {
    const TemporaryLibrary library;
    const std::string journal = library.Path() + "-journal";
    const std::string victim = library.PathOf("victim");

    void Write(const std::string& path, const QByteArray& bytes) const
    {
        QFile file(QString::fromStdString(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    /// With the name of a second journal at its end, whose file SQLite would delete.
    [[nodiscard]] QByteArray JournalNamingTheVictim() const
    {
        const auto sum = std::accumulate(victim.begin(), victim.end(), 0);
        return JournalOf(library) + Word(0x40000000 / 4096 + 1) + victim.c_str() +
               Word(std::ssize(victim)) + Word(sum) + kJournalMagic;
    }
    void WriteFirstPage(int offset, const QByteArray& patch) const
    {
        Write(journal, JournalOf(library, Patched(library.Bytes().first(4096), offset, patch)));
    }
};

struct Planted {
    const char* name;
    void (*apply)(const Scene&);
    const char* cause;
    bool isRolledBack = false;
};

const Planted kPlanted[] = {
    {"NamesAVictim", [](const Scene& s) { s.Write(s.journal, s.JournalNamingTheVictim()); },
     "may name other files"},
    {"IsAText", [](const Scene& s) { s.Write(s.journal, "Dear diary, today"); },
     "none that the studio wrote"},
    {"IsAPipe", [](const Scene& s) { std::ignore = ::mkfifo(s.journal.c_str(), 0600); },
     "not a plain file"},
    {"IsAFolder", [](const Scene& s) { std::filesystem::create_directory(s.journal); },
     "not a plain file"},
    {"IsALink", [](const Scene& s) { std::filesystem::create_symlink(s.victim, s.journal); },
     "not a plain file"},
    {"IsAnotherNameOfAFile",
     [](const Scene& s) { std::filesystem::create_hard_link(s.victim, s.journal); },
     "not a plain file"},
    {"SwitchesTheLogOn", [](const Scene& s) { s.WriteFirstPage(18, "\x02\x02"); },
     "write-ahead log", true},
    {"ChangesTheKind", [](const Scene& s) { s.WriteFirstPage(68, "CvxT"); }, "texture library",
     true},
};

class PlantedJournal : public testing::TestWithParam<Planted> {};

TEST_P(PlantedJournal, TouchesNothingButTheLibrary)
{
    const Scene scene;
    Fill(scene.library, 3);
    const QByteArray before = scene.library.Bytes();
    scene.Write(scene.victim, "precious");
    GetParam().apply(scene);
    const auto open = [&] { static_cast<void>(scene.library.Open()); };
    EXPECT_THAT(ErrorOf(open), AllOf(HasSubstr(scene.library.Path()), HasSubstr(GetParam().cause)));
    EXPECT_THAT(ErrorOf(open), HasSubstr(GetParam().cause)) << "again";
    EXPECT_EQ(std::filesystem::file_size(scene.victim), 8U);
    EXPECT_EQ(scene.library.Bytes() == before, !GetParam().isRolledBack);
    EXPECT_EQ(std::filesystem::exists(scene.journal), !GetParam().isRolledBack);
}

INSTANTIATE_TEST_SUITE_P(Files, PlantedJournal, testing::ValuesIn(kPlanted),
                         [](const auto& row) { return row.param.name; });

TEST(IdleJournal, IsRemovedUnlessSomebodyWrites)
{
    const Scene scene;
    studio::Database other(scene.library.Path(), studio::Database::Mode::Existing);
    std::optional<studio::Transaction> change(std::in_place, other,
                                              studio::Transaction::Purpose::Write);
    scene.Write(scene.journal, {});
    static_cast<void>(scene.library.Open());
    EXPECT_TRUE(std::filesystem::exists(scene.journal));
    change.reset();
    static_cast<void>(scene.library.Open());
    EXPECT_FALSE(std::filesystem::exists(scene.journal));
}

TEST(HostileEntries, CostOnlyThemselves)
{
    const TemporaryLibrary temporary;
    Fill(temporary, 8);
    // Strict tables take no wrong types, so that the texts are planted as what they are not.
    Sql(temporary.Path(),
        "UPDATE contents SET json = CAST(x'FF7B7D' AS TEXT) WHERE entry = 1;"
        "UPDATE contents SET json = CAST(zeroblob(20000000) AS TEXT) WHERE entry = 2;"
        "UPDATE thumbnails SET png = zeroblob(20000000) WHERE entry = 3;"
        "UPDATE entries SET name = CAST(x'41FF42' AS TEXT) WHERE id = 4;"
        "DELETE FROM contents WHERE entry = 5;"
        "PRAGMA writable_schema = 1;"
        "UPDATE sqlite_schema SET sql = replace(sql, ' STRICT', '') WHERE name = 'entries';");
    Sql(temporary.Path(),
        "UPDATE entries SET name = x'00', colour = 'red' WHERE id = 6;"
        "PRAGMA writable_schema = 1;"
        "UPDATE sqlite_schema SET sql = sql || ' STRICT' WHERE name = 'entries';");
    auto library = temporary.Open();
    ASSERT_EQ(library.Count(), 8);
    const auto material = [&](std::int32_t index) {
        return ErrorOf([&] { static_cast<void>(studio::ReadMaterial(library, index)); });
    };
    EXPECT_THAT(material(0),
                AllOf(HasSubstr(temporary.Path()), HasSubstr("\"entry 0\" is damaged")));
    EXPECT_THAT(material(1), HasSubstr("larger than"));
    EXPECT_THAT(ErrorOf([&] { static_cast<void>(library.ThumbnailAt(2)); }), HasSubstr("larger"));
    EXPECT_EQ(library.NameAt(3), "A\xEF\xBF\xBD"
                                 "B");
    EXPECT_THAT(material(4), HasSubstr("no longer there"));
    EXPECT_EQ(library.NameAt(5), "");
    EXPECT_EQ(material(7), "");
    EXPECT_THAT(library.StructureProblems(), testing::Not(testing::IsEmpty()));
    library.Remove(library.IdAt(0));
    library.EmptyTrash();
    EXPECT_EQ(library.Count(), 7);
}

}  // namespace
