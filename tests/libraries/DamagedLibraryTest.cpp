#include "SampleMaterials.h"

#include "FuzzLibrary.h"
#include "LibraryReading.h"
#include "Testing.h"

#include <QtEndian>

#include <numeric>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

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
    auto library = temporary.Open();
    std::mt19937 dice(1);
    std::vector<studio::NewEntry> all;
    for (int i = 0; i < entries; ++i) {
        all.push_back(studio::EntryOfMaterial(
            {"entry " + std::to_string(i), LibraryTest::AnyMaterial(dice)}, "/"));
        all.back().png.assign(300, 'x');
    }
    library.Add(all);
}

struct Damage {
    const char* name;
    void (*apply)(const TemporaryLibrary&);
    const char* cause;
};

void ReplaceBytes(const TemporaryLibrary& temporary, int offset, const QByteArray& bytes)
{
    temporary.SetBytes(temporary.Bytes().replace(offset, bytes.size(), bytes));
}

const std::array kDamages{
    Damage{"Empty", [](const auto& t) { t.SetBytes({}); }, "it is empty"},
    Damage{"Text", [](const auto& t) { t.SetBytes("Not a library at all\n"); }, "not a library"},
    Damage{"HeaderOnly", [](const auto& t) { t.SetBytes(t.Bytes().first(100)); }, "truncated"},
    Damage{"LastPageGone", [](const auto& t) { t.SetBytes(t.Bytes().chopped(4096)); }, "truncated"},
    Damage{"OtherKind", [](const auto& t) { ReplaceBytes(t, 68, "CvxT"); }, "texture library"},
    Damage{"OtherProgram", [](const auto& t) { ReplaceBytes(t, 68, "abcd"); }, "another program"},
    Damage{"LaterVersion", [](const auto& t) { Sql(t.Path(), "PRAGMA user_version = 7"); },
           "later version of the studio (format 7"},
    Damage{"WriteAheadLog", [](const auto& t) { ReplaceBytes(t, 18, "\x02\x02"); }, "header"},
    Damage{"SchemaOverwritten",
           [](const auto& t) { ReplaceBytes(t, 100, QByteArray(3000, '\xAA')); }, "damaged"},
    Damage{"ViewAsTable",
           [](const auto& t) {
               Sql(t.Path(),
                   "ALTER TABLE entries RENAME TO hidden; DROP INDEX entries_in_order;"
                   "DROP INDEX entries_by_name; CREATE VIEW entries AS SELECT * FROM hidden");
           },
           "not those of a library"},
    Damage{"ViewWithTheTablesText",
           [](const auto& t) {
               Sql(t.Path(), "PRAGMA writable_schema = 1; UPDATE sqlite_schema SET type = 'view' "
                             "WHERE name = 'contents'");
           },
           "damaged"},
    Damage{"Trigger",
           [](const auto& t) {
               Sql(t.Path(),
                   "CREATE TRIGGER gone AFTER INSERT ON entries BEGIN DELETE FROM contents; END");
           },
           "not those of a library"},
    Damage{"TableMissing", [](const auto& t) { Sql(t.Path(), "DROP TABLE thumbnails"); },
           "are missing"},
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

// As a crash leaves it: so many pages to be put back, each as it is given.
QByteArray JournalOf(const TemporaryLibrary& temporary, const QList<QByteArray>& pages)
{
    const QByteArray library = temporary.Bytes();
    QByteArray journal = kJournalMagic + Word(pages.size()) + Word(0) +
                         Word(library.size() / 4096) + Word(512) + Word(4096);
    journal.resize(512);
    for (qsizetype i = 0; i < pages.size(); ++i) {
        qsizetype sum = 0;
        for (qsizetype at = 4096 - 200; at > 0; at -= 200) {
            sum += static_cast<unsigned char>(pages[i][at]);
        }
        journal += Word(i + 1) + pages[i] + Word(sum);
    }
    return journal;
}

// With the name of a second journal at its end, whose file SQLite would delete.
QByteArray JournalNaming(const TemporaryLibrary& temporary, const QByteArray& victim)
{
    const auto sum = std::accumulate(victim.begin(), victim.end(), 0);
    return JournalOf(temporary, {}) + Word(0x40000000 / 4096 + 1) + victim + Word(victim.size()) +
           Word(sum) + kJournalMagic;
}

struct Planted {
    const char* name;
    void (*apply)(const TemporaryLibrary&, const QString& journal, const QString& victim);
    const char* cause;
    bool isRolledBack = false;
};

void PlantBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

const std::array kPlanted{
    Planted{"NamesAVictim",
            [](const auto& t, const auto& journal, const auto& victim) {
                PlantBytes(journal, JournalNaming(t, victim.toUtf8()));
            },
            "may name other files"},
    Planted{"NamesAJournal",
            [](const auto& t, const auto& journal, const auto& victim) {
                ASSERT_TRUE(QFile::copy(victim, t.PathOf("other-journal").c_str()));
                PlantBytes(journal, JournalNaming(t, t.PathOf("other-journal").c_str()));
            },
            "may name other files"},
    Planted{"IsAText",
            [](const auto&, const auto& journal, const auto&) {
                PlantBytes(journal, "Dear diary, today");
            },
            "none that the studio wrote"},
    Planted{"IsAPipe",
            [](const auto&, const auto& journal, const auto&) {
                ASSERT_EQ(::mkfifo(journal.toUtf8().constData(), 0600), 0);
            },
            "not a plain file"},
    Planted{
        "IsAFolder",
        [](const auto&, const auto& journal, const auto&) { ASSERT_TRUE(QDir().mkpath(journal)); },
        "not a plain file"},
    Planted{"IsALink",
            [](const auto&, const auto& journal, const auto& victim) {
                ASSERT_TRUE(QFile::link(victim, journal));
            },
            "not a plain file"},
    Planted{"IsAnotherNameOfAFile",
            [](const auto&, const auto& journal, const auto& victim) {
                ASSERT_EQ(::link(victim.toUtf8().constData(), journal.toUtf8().constData()), 0);
            },
            "not a plain file"},
    Planted{"SwitchesTheLogOn",
            [](const auto& t, const auto& journal, const auto&) {
                const QByteArray page = t.Bytes().first(4096).replace(18, 2, "\x02\x02");
                PlantBytes(journal, JournalOf(t, {page}));
            },
            "write-ahead log", true},
    Planted{"ChangesTheKind",
            [](const auto& t, const auto& journal, const auto&) {
                const QByteArray page = t.Bytes().first(4096).replace(68, 4, "CvxT");
                PlantBytes(journal, JournalOf(t, {page}));
            },
            "texture library", true},
};

class PlantedJournal : public testing::TestWithParam<Planted> {};

TEST_P(PlantedJournal, TouchesNothingButTheLibrary)
{
    const TemporaryLibrary temporary;
    Fill(temporary, 3);
    const QByteArray before = temporary.Bytes();
    const QString journal = QString::fromStdString(temporary.Path() + "-journal");
    const QString victim = QString::fromStdString(temporary.PathOf("victim"));
    PlantBytes(victim, "precious");
    ASSERT_NO_FATAL_FAILURE(GetParam().apply(temporary, journal, victim));
    const auto open = [&] { static_cast<void>(temporary.Open()); };
    EXPECT_THAT(ErrorOf(open), AllOf(HasSubstr(temporary.Path()), HasSubstr(GetParam().cause)));
    EXPECT_THAT(ErrorOf(open), HasSubstr(GetParam().cause)) << "again";
    EXPECT_EQ(QFileInfo(victim).size(), 8);
    EXPECT_EQ(temporary.Bytes() == before, !GetParam().isRolledBack);
    EXPECT_EQ(QFileInfo::exists(journal), !GetParam().isRolledBack);
}

INSTANTIATE_TEST_SUITE_P(Files, PlantedJournal, testing::ValuesIn(kPlanted),
                         [](const auto& row) { return row.param.name; });

TEST(IdleJournal, IsRemovedUnlessSomebodyWrites)
{
    const TemporaryLibrary temporary;
    const QString journal = QString::fromStdString(temporary.Path() + "-journal");
    studio::Database other(temporary.Path(), studio::Database::Mode::Existing);
    std::optional<studio::Transaction> change(std::in_place, other,
                                              studio::Transaction::Purpose::Write);
    PlantBytes(journal, {});
    static_cast<void>(temporary.Open());
    EXPECT_TRUE(QFileInfo::exists(journal));
    change.reset();
    static_cast<void>(temporary.Open());
    EXPECT_FALSE(QFileInfo::exists(journal));
}

TEST(RefusedPaths, AreNamed)
{
    const TemporaryLibrary temporary;
    for (const std::string& path : {temporary.PathOf("missing.cvm"), temporary.PathOf(""),
                                    std::string("/dev/null"), std::string("file:///dev/zero")}) {
        const auto open = [&] {
            static_cast<void>(studio::LibraryFile::Open(path, studio::LibraryKind::Materials));
        };
        EXPECT_THAT(ErrorOf(open), HasSubstr("Library '/")) << path;
    }
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
    FuzzLibrary(temporary.Path());
}

}  // namespace
