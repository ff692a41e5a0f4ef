#include "SampleMaterials.h"

#include "LibraryQuery.h"
#include "LibraryReading.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

using LibraryTest::EntryNamed;
using LibraryTest::ErrorOf;
using LibraryTest::NamesIn;
using studio::LibraryFile;
using studio::LibraryKind;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(LibraryFiles, KeepOrderNamesAndPicturesThroughTrashAndBack)
{
    const LibraryTest::TemporaryLibrary temporary;
    auto library = temporary.Open();
    std::vector entries{EntryNamed("Oak"), EntryNamed("oak"), EntryNamed(""),
                        EntryNamed("\xC3\x84hre")};
    entries[2].png.assign(50000, 'x');
    const auto ids = library.Add(entries);
    const std::string picture("\x89PNG\0\xFF", 6);
    library.SetThumbnails(std::vector<studio::EntryPicture>{{ids[1], picture}});
    library.Remove(std::vector{ids[1], ids[2]});
    library.Remove(ids[0]);
    EXPECT_THAT(NamesIn(library), ElementsAre("\xC3\x84hre"));
    EXPECT_EQ(library.Trash().front().name, "Oak") << "the latest first";
    EXPECT_THAT(library.IdsNamed("Oak"), IsEmpty());
    library.Restore(std::vector{ids[1], ids[0], ids[1]});
    library.Rename(ids[3], "Ear");

    auto again = temporary.Open();
    EXPECT_THAT(NamesIn(again), ElementsAre("Oak", "oak", "Ear"));
    EXPECT_THAT(NamesIn(library), ElementsAre("Oak", "oak", "Ear"));
    EXPECT_EQ(again.ThumbnailAt(1), picture);
    EXPECT_EQ(again.ThumbnailAt(0), "");
    EXPECT_THAT(again.IdsNamed("OAK"), ElementsAre(ids[0], ids[1]));

    const auto sizeBefore = temporary.Bytes().size();
    again.EmptyTrash();
    EXPECT_LT(temporary.Bytes().size(), sizeBefore);
    again.Restore(ids[2]);
    EXPECT_THAT(again.Trash(), IsEmpty());
    EXPECT_EQ(again.Count(), 3);
    again.Remove(ids[3]);
    again.EmptyTrash();
    EXPECT_GT(again.Add(EntryNamed("new")), ids[3]) << "an id is never used again";
    EXPECT_THAT(again.StructureProblems(), IsEmpty());
}

TEST(LibraryFiles, TellOneStateOfARecordFromAnother)
{
    const LibraryTest::TemporaryLibrary temporary;
    auto library = temporary.Open();
    studio::NamedMaterial oak{"Oak", {}};
    const auto entry = [&oak] { return studio::EntryOfMaterial(oak, "/"); };
    const auto id = library.Add(entry());
    const std::string before = library.RevisionOf(id);
    library.Rename(id, "Elm");
    EXPECT_EQ(library.RevisionOf(id), before) << "the record is the same";
    oak.material.Transparency = 40;
    library.Replace(id, entry());
    EXPECT_NE(library.RevisionOf(id), before);
    EXPECT_EQ(library.NameAt(0), "Elm");
    EXPECT_EQ(studio::ReadMaterial(library, 0).material.Transparency, 40);
    const auto query = studio::ReadLibraryQuery("transparency=40");
    EXPECT_THAT(library.Search(std::get<studio::LibraryQuery>(query)), ElementsAre(0));
    oak.material.Transparency = 0;
    library.Replace(id, entry());
    EXPECT_EQ(library.RevisionOf(id), before) << "and so is this one again";
    EXPECT_EQ(library.RevisionOf(id + 1), "");
}

TEST(LibraryFiles, RefuseIndexesOutsideAndLeaveTheRestUsable)
{
    const LibraryTest::TemporaryLibrary temporary;
    auto library = temporary.Open();
    library.Add(EntryNamed("only"));
    for (const std::int32_t index : {-1, 1, 2147483647}) {
        EXPECT_THAT(ErrorOf([&] { static_cast<void>(library.JsonAt(index)); }),
                    HasSubstr(std::to_string(index)));
    }
    EXPECT_EQ(library.NameAt(0), "only");
}

TEST(LibraryFiles, SeeWhatAnotherProgramChanged)
{
    const LibraryTest::TemporaryLibrary temporary;
    auto ours = temporary.Open();
    auto theirs = temporary.Open();
    const auto first = ours.Add(EntryNamed("first"));
    EXPECT_TRUE(theirs.Refresh());
    EXPECT_FALSE(theirs.Refresh());
    theirs.Add(EntryNamed("second"));
    theirs.Remove(first);
    // Without a refresh: the change itself counts anew.
    ours.Add(EntryNamed("third"));
    EXPECT_THAT(NamesIn(ours), ElementsAre("second", "third"));
    EXPECT_FALSE(ours.Refresh());
    theirs.Add(EntryNamed("fourth"));
    auto tooLarge = EntryNamed("fifth");
    tooLarge.png.assign(17 << 20, 'x');
    EXPECT_THAT(ErrorOf([&] { ours.Add(tooLarge); }), HasSubstr("larger than 16 MB"));
    EXPECT_THAT(NamesIn(ours), ElementsAre("second", "third")) << "who shows these was not told";
    EXPECT_TRUE(ours.Refresh());
}

TEST(LibraryFiles, AreMadeWholeAndOnlyWhereThereIsNone)
{
    const LibraryTest::TemporaryLibrary temporary;
    temporary.Open().Add(EntryNamed("precious"));
    EXPECT_THAT(ErrorOf([&] { LibraryFile::Create(temporary.Path(), LibraryKind::Materials); }),
                HasSubstr(temporary.Path()));
    EXPECT_EQ(temporary.Open().Count(), 1);
    const std::string nowhere = temporary.PathOf("no/such/folder.cvm");
    EXPECT_THAT(ErrorOf([&] { LibraryFile::Create(nowhere, LibraryKind::Materials); }),
                HasSubstr(nowhere));
    const QDir folder(QString::fromStdString(temporary.PathOf("")));
    EXPECT_EQ(folder.entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList("some.cvm"))
        << "nothing else is left behind";
}

/// Rights do not bind the superuser, so that the test becomes somebody else for a while.
class AsNobody {
public:
    AsNobody() { static_cast<void>(!::geteuid() && ::seteuid(65534)); }
    ~AsNobody() { static_cast<void>(::seteuid(::getuid())); }
};

TEST(LibraryFiles, OpenForReadingWhereWritingIsNotAllowed)
{
    const LibraryTest::TemporaryLibrary temporary;
    const std::string folder = temporary.PathOf("");
    temporary.Open().Add(EntryNamed("kept"));
    for (const auto& [fileMode, folderMode, reason] :
         {std::tuple{0444U, 0755U, "write to the file"},
          std::tuple{0666U, 0555U, "write to its folder"}}) {
        ASSERT_EQ(::chmod(temporary.Path().c_str(), fileMode), 0);
        ASSERT_EQ(::chmod(folder.c_str(), folderMode), 0);
        const AsNobody nobody;
        auto library = temporary.Open();
        EXPECT_EQ(library.NameAt(0), "kept");
        EXPECT_THAT(library.ReadOnlyReason(), HasSubstr(reason));
        EXPECT_THAT(ErrorOf([&] { library.Remove(library.IdAt(0)); }),
                    testing::AllOf(HasSubstr(temporary.Path()), HasSubstr(reason)));
        EXPECT_EQ(library.Count(), 1);
    }
    ::chmod(folder.c_str(), 0755);
}

}  // namespace
