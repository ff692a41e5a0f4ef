#include "ErrorMatch.h"
#include "FullDisk.h"
#include "SampleFolder.h"
#include <CorvexMaterial/QtPlatform.h>

#include <sys/stat.h>

using namespace CorvexMaterial;
using testing::HasSubstr;
using testing::Optional;

namespace {

const std::string kApplication = "Some Host";

using CorvexTest::ContentOf;

SettingAddress At(const std::string& key, const std::string& section = "Application")
{
    return {kApplication, section, key};
}

class SettingsStoreTest : public testing::Test {
protected:
    [[nodiscard]] QString Folder() const { return m_home.PathOf("Corvex"); }
    [[nodiscard]] QString File() const { return Folder() + "/Some Host.ini"; }

    void PutFile(const QByteArray& content) const { m_home.Write("Corvex/Some Host.ini", content); }

    static std::optional<std::string> ReadAfresh(const SettingAddress& address)
    {
        QtPlatform platform;
        return platform.Get().settings.Read(address);
    }

    static void WriteAfresh(const SettingAddress& address, const std::string& text)
    {
        QtPlatform platform;
        platform.Get().settings.Write(address, text);
        platform.Get().settings.Flush(address.application);
    }

private:
    CorvexTest::SampleFolder m_home;
    bool m_isSet = qputenv("XDG_CONFIG_HOME", m_home.Path().toLocal8Bit());
    QtPlatform m_platform;

protected:
    SettingsStore& store = m_platform.Get().settings;
};

}  // namespace

TEST_F(SettingsStoreTest, PipeIsNeitherReadNorReplaced)
{
    PutFile({});
    ASSERT_TRUE(QFile::remove(File()) &&
                ::mkfifo(QFile::encodeName(File()).constData(), 0600) == 0);
    EXPECT_EQ(store.Read(At("Key")), std::nullopt);
    store.Write(At("Key"), "kept");
    EXPECT_THAT(FileFailure([&] { store.Flush(kApplication); }),
                Optional(HasSubstr("Some Host.ini cannot be read: it is a pipe")));
    EXPECT_THAT(store.Read(At("Key")), Optional(std::string("kept")));
}

TEST_F(SettingsStoreTest, EveryTextComesBackUnchangedFromDisk)
{
    for (const std::string& text :
         {std::string(), std::string(" "), std::string("0.5"), std::string("a, b"),
          std::string("/textures/a,b;c.png"), std::string("\"quoted\""), std::string("@Invalid()"),
          std::string("@@"), std::string("50%41"), std::string("C:\\new\\table"),
          std::string("two\nlines"), std::string("[Section]"), std::string("key=value"),
          std::string("Grün 漢 \xF0\x9F\x8E\xA8"), std::string("a\0b", 3),
          std::string(200'000, 'x')}) {
        WriteAfresh(At("Key"), text);
        EXPECT_THAT(ReadAfresh(At("Key")), Optional(text));
    }
}

TEST_F(SettingsStoreTest, KeepsApplicationsSectionsAndLetterCaseApart)
{
    const std::vector<SettingAddress> addresses{At("Rows"),
                                                At("rows"),
                                                At("A/B"),
                                                At("A//B/"),
                                                At("A%2FB"),
                                                At("Rows", "Tips"),
                                                At("Rows", "General"),
                                                {"Other", "Application", "Rows"},
                                                {"../../Some Host", "Application", "Rows"},
                                                {"", "Application", "Rows"}};
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        store.Write(addresses[i], std::to_string(i));
        store.Flush(addresses[i].application);
    }
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        EXPECT_THAT(ReadAfresh(addresses[i]), Optional(std::to_string(i))) << i;
    }
    EXPECT_EQ(ReadAfresh(At("ROWS")), std::nullopt);
    EXPECT_EQ(QDir(Folder()).entryList({"*.ini"}, QDir::Files | QDir::Hidden).size(), 4);
}

TEST_F(SettingsStoreTest, TouchesTheDiskOnFlushOnlyAndMergesWithOtherWriters)
{
    store.Write(At("Mine"), "1");
    EXPECT_THAT(store.Read(At("Mine")), Optional(std::string("1")));
    EXPECT_FALSE(QFile::exists(File()));
    WriteAfresh(At("Theirs"), "2");
    store.Flush(kApplication);
    EXPECT_THAT(ReadAfresh(At("Mine")), Optional(std::string("1")));
    EXPECT_THAT(ReadAfresh(At("Theirs")), Optional(std::string("2")));
    WriteAfresh(At("Mine"), "3");
    store.Write(At("More"), "4");
    store.Flush(kApplication);
    EXPECT_THAT(ReadAfresh(At("Mine")), Optional(std::string("3"))) << "written once already";
}

TEST_F(SettingsStoreTest, ReadsAFileThatAPersonEdited)
{
    PutFile("; a remark\n[Application]\nMaterialTexture=/a,b.png\nMaterialAmbient = 40 \n");
    EXPECT_THAT(ReadAfresh(At("MaterialTexture")), Optional(std::string("/a,b.png")));
    EXPECT_THAT(ReadAfresh(At("MaterialAmbient")), Optional(std::string("40")));
}

TEST_F(SettingsStoreTest, ReadsWhatCanBeReadOfADamagedFileAndKeepsIt)
{
    constexpr char kNoText[] = "\x7F"
                               "ELF\0\0\x01\xFF\xFE\r\n\xC3\x28";
    int damaged = 0;
    for (const QByteArray& damage :
         {QByteArray("[Application\nKey=1"), QByteArray("no equals sign"),
          QByteArray(kNoText, sizeof kNoText - 1), QByteArray("[Tips]\nx"),
          QByteArray(100'000, '\0')}) {
        const QByteArray content = damage + "\n[Application]\nGood=1\n";
        PutFile(content);
        QtPlatform platform;
        SettingsStore& settings = platform.Get().settings;
        EXPECT_THAT(settings.Read(At("Good")), Optional(std::string("1")));
        settings.Write(At("New"), "2");
        EXPECT_THAT(FileFailure([&] { settings.Flush(kApplication); }),
                    Optional(HasSubstr("Some Host.ini")));
        EXPECT_EQ(ContentOf(File() + ".damaged" + QString::number(++damaged)), content);
        EXPECT_EQ(FileFailure([&] { settings.Flush(kApplication); }), std::nullopt);
        EXPECT_THAT(ReadAfresh(At("Good")), Optional(std::string("1")));
        EXPECT_THAT(ReadAfresh(At("New")), Optional(std::string("2")));
    }
}

TEST_F(SettingsStoreTest, SurvivesValuesThatOnlyLookLikeItsOwnEncoding)
{
    PutFile(
        "[Application]\nA=@Variant(\\0\\0\\0\\x7f\\xff\\xff\\xff\\xff)\nB=@ByteArray(\nC=@Rect(a)\n"
        "D=\\x\nE=\"unclosed\n");
    for (const char* key : {"A", "B", "C", "D", "E"}) {
        static_cast<void>(store.Read(At(key)));
    }
    store.Write(At("F"), "1");
    store.Flush(kApplication);
    EXPECT_THAT(ReadAfresh(At("F")), Optional(std::string("1")));
}

TEST_F(SettingsStoreTest, ReportsAFileThatCannotBeReplacedAndTriesAgain)
{
    ASSERT_TRUE(QDir().mkpath(File()));
    EXPECT_EQ(store.Read(At("Key")), std::nullopt);
    store.Write(At("Key"), "1");
    EXPECT_THAT(FileFailure([&] { store.Flush(kApplication); }),
                Optional(HasSubstr("Some Host.ini")));
    EXPECT_THAT(store.Read(At("Key")), Optional(std::string("1")));
    ASSERT_TRUE(QDir().rmdir(File()));
    EXPECT_EQ(FileFailure([&] { store.Flush(kApplication); }), std::nullopt);
    EXPECT_THAT(ReadAfresh(At("Key")), Optional(std::string("1")));
}

TEST_F(SettingsStoreTest, ReportsAFolderThatCannotBeCreated)
{
    QFile inTheWay(Folder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    store.Write(At("Key"), "1");
    EXPECT_THAT(FileFailure([&] { store.Flush(kApplication); }),
                Optional(HasSubstr("Some Host.ini")));
}

TEST_F(SettingsStoreTest, FullDiskLeavesTheOldFileWhole)
{
    store.Write(At("Key"), "old");
    store.Flush(kApplication);
    const QByteArray before = ContentOf(File());
    store.Write(At("Key"), "new");
    {
        const CorvexTest::FullDisk full;
        EXPECT_THAT(FileFailure([&] { store.Flush(kApplication); }),
                    Optional(HasSubstr("Some Host.ini")));
    }
    EXPECT_EQ(ContentOf(File()), before);
    EXPECT_EQ(FileFailure([&] { store.Flush(kApplication); }), std::nullopt);
    EXPECT_THAT(ReadAfresh(At("Key")), Optional(std::string("new")));
}
