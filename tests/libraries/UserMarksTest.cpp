#include "UserMarks.h"

#include "SampleMaterials.h"

namespace {

using studio::UserMarks;
using Ids = std::vector<std::int64_t>;

class Marks : public testing::Test {
protected:
    LibraryTest::TemporaryLibrary folder;
    std::string file = folder.PathOf("deep/down/own.cvu");
};

TEST_F(Marks, AreKeptOfEachLibraryAndSeenByOthers)
{
    UserMarks ours(file);
    EXPECT_TRUE(ours.Of("/a.cvm").empty());
    EXPECT_FALSE(QFile::exists(QString::fromStdString(file))) << "reading makes nothing";
    UserMarks theirs(file);
    EXPECT_TRUE(theirs.Of("/a.cvm").empty());
    ours.SetFavourite("/a.cvm", Ids{1, 2}, true);
    ours.SetRating("/a.cvm", Ids{2, 3}, 4);
    ours.SetRating("/b.cvm", Ids{1}, 9);
    theirs.Forget();
    const auto& marks = theirs.Of("/a.cvm");
    EXPECT_TRUE(MarkOf(marks, 2).isFavourite);
    EXPECT_EQ(MarkOf(marks, 2).rating, 4);
    EXPECT_FALSE(MarkOf(marks, 3).isFavourite);
    EXPECT_EQ(MarkOf(theirs.Of("/b.cvm"), 1).rating, 5);
    theirs.SetFavourite("/a.cvm", Ids{1}, false);
    EXPECT_EQ(theirs.Of("/a.cvm").size(), 2U) << "what is not marked takes no place";
}

TEST_F(Marks, KnowTheLatestFewThatWereUsed)
{
    UserMarks marks(file);
    marks.SetFavourite("/a.cvm", Ids{1}, true);
    for (std::int64_t id = 1; id <= 60; ++id) {
        marks.SetUsed("/a.cvm", id);
    }
    marks.SetUsed("/a.cvm", 20);
    UserMarks again(file);
    const auto& known = again.Of("/a.cvm");
    EXPECT_EQ(known.size(), 51U);
    EXPECT_TRUE(MarkOf(known, 1).isFavourite);
    EXPECT_EQ(MarkOf(known, 1).used, 0);
    EXPECT_GT(MarkOf(known, 20).used, MarkOf(known, 60).used);
}

TEST_F(Marks, OfADamagedFileAreBegunAnewAndItIsKept)
{
    UserMarks(file).SetRating("/a.cvm", Ids{1}, 2);
    for (const char* damage : {"", "no database"}) {
        QFile damaged(QString::fromStdString(file));
        ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
        damaged.write(damage);
        damaged.close();
        UserMarks marks(file);
        EXPECT_TRUE(marks.Of("/a.cvm").empty());
        marks.SetRating("/a.cvm", Ids{1}, 3);
        UserMarks again(file);
        EXPECT_EQ(MarkOf(again.Of("/a.cvm"), 1).rating, 3);
        QFile kept(QString::fromStdString(file) + ".damaged");
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll(), damage);
    }
    EXPECT_NE(LibraryTest::ErrorOf(
                  [] { UserMarks("/proc/no/such/own.cvu").SetRating("/a.cvm", Ids{1}, 3); }),
              "");
}

}  // namespace
