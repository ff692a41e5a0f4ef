#include "FullDisk.h"
#include "SampleFolder.h"
#include "SampleMaterial.h"
#include "SampleMaterials.h"

#include "LibraryQuery.h"
#include "LibraryReading.h"
#include "MaterialDocument.h"

#include <sys/wait.h>
#include <unistd.h>

// Files of the first program that had this format. They stay as they are.

namespace {

using LibraryTest::NamesIn;
using studio::LibraryFile;
using studio::LibraryKind;
using testing::ElementsAre;
using testing::IsEmpty;

class OldLibrary : public testing::TestWithParam<LibraryKind> {
protected:
    OldLibrary() { temporary.SetBytes(bytes); }

    static void ExpectOldEntries(LibraryFile& library, const std::string& folder)
    {
        if (GetParam() == LibraryKind::Textures) {
            EXPECT_EQ(NamesIn(library).front(), "oak");
            EXPECT_EQ(ReadTexture(library, 0), folder + "/Textures/oak.png");
            return;
        }
        const auto first = ReadMaterial(library, 0);
        EXPECT_EQ(NamesIn(library).front(), "M\u00F6rtel \u77F3");
        EXPECT_TRUE(first.material == CorvexTest::AsKeptBefore(LibraryTest::WholeMaterial()));
        EXPECT_THAT(first.problems, IsEmpty());
        CorvexDB::udtMaterial oak;
        oak.Color = 0x28624F;
        oak.Textures.primary = folder + "/Textures/oak.png";
        EXPECT_TRUE(ReadMaterial(library, 1).material == oak);
    }

    const LibraryTest::TemporaryLibrary temporary{GetParam()};
    const QByteArray bytes =
        CorvexTest::ContentOf(GetParam() == LibraryKind::Materials ? OLD_FILES "/Materials.cvm"
                                                                   : OLD_FILES "/Textures.cvt");
};

TEST_P(OldLibrary, IsReadAndSearchedAndStaysAsItIs)
{
    auto library = temporary.Open();
    ExpectOldEntries(library, temporary.PathOf(""));
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(library.ThumbnailAt(0)), "PNG").width(),
              GetParam() == LibraryKind::Materials ? 128 : 8);
    const char* const queries[] = {
        "m\u00F6rtel color=#604020 ambient=11 emissive=12 specular=13 transparency<0 alphatest=5 "
        "is:doublesided is:raytraced has:texture has:overlay has:alpha has:bump has:specular "
        "has:environment has:thumbnail plugin:marble file:/s.png field:1=one",
        "oak width=8 height=4 file:./textures/ has:thumbnail -has:field"};
    const auto query = studio::ReadLibraryQuery(queries[static_cast<int>(GetParam())]);
    EXPECT_THAT(library.Search(std::get<studio::LibraryQuery>(query)), ElementsAre(0));
    EXPECT_EQ(library.TrashCount(), 1);
    EXPECT_EQ(temporary.Bytes(), bytes);
}

TEST_P(OldLibrary, IsChanged)
{
    auto library = temporary.Open();
    auto reader = temporary.Open();
    std::vector<std::string> told;
    library.SetBackupListener([&](const std::string& backup) { told.push_back(backup); });
    const auto added = library.Add(LibraryTest::EntryNamed("new"));
    library.Remove(added);
    library.Restore(std::vector{library.Trash().back().id, added});
    library.Remove(library.IdAt(library.Count() - 2));
    library.EmptyTrash();
    auto again = temporary.Open();
    ExpectOldEntries(again, temporary.PathOf(""));
    EXPECT_EQ(NamesIn(again).back(), "new");
    EXPECT_THAT(again.StructureProblems(), IsEmpty());
    EXPECT_THAT(told, ElementsAre(temporary.Path() + ".v1-backup"));
    EXPECT_EQ(CorvexTest::ContentOf(QString::fromStdString(told.front())), bytes);
    EXPECT_TRUE(reader.Refresh());
    reader.Describe(std::vector<studio::DescribedEntry>{{reader.IdAt(0), {"Ann", "", "", {}, {}}}});
    EXPECT_EQ(again.DetailsOf(again.IdAt(0)).author, "Ann");
}

TEST_P(OldLibrary, IsCopiedBesideBeforeItsFirstChangeOrNotChanged)
{
    const QString backup = QString::fromStdString(temporary.Path() + ".v1-backup");
    const auto change = [&] {
        auto library = temporary.Open();
        library.Rename(library.IdAt(0), "new");
    };
    {
        const CorvexTest::FullDisk disk(static_cast<rlim_t>(bytes.size() / 2));
        EXPECT_THAT(LibraryTest::ErrorOf(change), testing::HasSubstr("copied before its first"));
    }
    EXPECT_EQ(temporary.Bytes(), bytes);
    EXPECT_FALSE(QFile::exists(backup));
    const auto broken = [&] {
        auto library = temporary.Open();
        auto entry = LibraryTest::EntryNamed("too large");
        entry.png.assign(17 << 20, 'x');
        library.Add(entry);
    };
    EXPECT_THAT(LibraryTest::ErrorOf(broken), testing::HasSubstr("larger than"));
    EXPECT_EQ(temporary.Bytes(), bytes) << "a change that fails changes no format";
    EXPECT_FALSE(QFile::exists(backup));

    QFile stranger(backup);
    ASSERT_TRUE(stranger.open(QIODevice::WriteOnly) && stranger.write("precious") == 8);
    stranger.close();
    change();
    EXPECT_EQ(CorvexTest::ContentOf(backup), "precious");
    EXPECT_EQ(CorvexTest::ContentOf(backup + "-2"), bytes);
    temporary.SetBytes(bytes);
    change();
    EXPECT_FALSE(QFile::exists(backup + "-3")) << "the same copy is there already";
}

TEST_P(OldLibrary, IsTheOldOrTheNewWhenItsFirstChangeIsKilled)
{
    int isNew = 0;
    for (int round = 0; round < 60; ++round) {
        temporary.SetBytes(bytes);
        const pid_t writer = ::fork();
        if (writer == 0) {
            auto library = temporary.Open();
            library.Rename(library.IdAt(0), "new");
            ::_exit(0);
        }
        ::usleep(static_cast<useconds_t>(round) * 60);
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        auto library = temporary.Open();
        EXPECT_THAT(library.StructureProblems(), IsEmpty());
        const bool isDone = library.NameAt(0) == "new";
        EXPECT_TRUE(isDone || temporary.Bytes() == bytes) << round;
        isNew += isDone ? 1 : 0;
    }
    EXPECT_GT(isNew, 0);
    const QDir folder(QString::fromStdString(temporary.PathOf("")));
    for (const QString& file : folder.entryList({"*-backup*"}, QDir::Files)) {
        EXPECT_EQ(CorvexTest::ContentOf(folder.filePath(file)), bytes) << file.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(, OldLibrary,
                         testing::Values(LibraryKind::Materials, LibraryKind::Textures));

TEST(OldDocument, HasEveryValue)
{
    std::vector<std::string> problems;
    const auto materials = studio::ReadMaterialDocument(OLD_FILES "/Materials.json", problems);
    ASSERT_EQ(materials.size(), 2U);
    EXPECT_TRUE(materials[0].material == CorvexTest::AsKeptBefore(LibraryTest::WholeMaterial()));
    EXPECT_EQ(materials[1].name, "Oak");
    EXPECT_EQ(materials[1].material.Textures.primary, OLD_FILES "/Textures/oak.png");
    EXPECT_THAT(problems, IsEmpty());
}

}  // namespace
