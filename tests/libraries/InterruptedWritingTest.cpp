#include "FullDisk.h"
#include "SampleMaterials.h"

#include <sys/wait.h>
#include <unistd.h>

namespace {

using LibraryTest::ErrorOf;
using LibraryTest::NamesIn;
using testing::HasSubstr;

/// Every third change takes out what the one two before has added.
std::string NameOf(int number)
{
    return "entry " + std::to_string(number % 3 == 2 ? number - 2 : number);
}

void Change(studio::LibraryFile& library, int first, int count)
{
    for (int number = first; number < first + count; ++number) {
        if (number % 3 == 2) {
            library.Remove(library.IdsNamed(NameOf(number)));
        } else {
            studio::NewEntry entry = LibraryTest::EntryNamed(NameOf(number));
            entry.png.assign(5000, 'x');
            library.Add(entry);
        }
    }
}

class InterruptedWriting : public testing::Test {
protected:
    /// How many changes are on the disk, each of them whole.
    int Done()
    {
        auto library = m_temporary.Open();
        EXPECT_THAT(library.StructureProblems(), testing::IsEmpty());
        ExpectWholeEntries(library, 0);
        const auto names = NamesIn(library);
        std::vector<std::string> expected;
        int number = 0;
        for (; expected != names && number < 1000; ++number) {
            if (number % 3 == 2) {
                std::erase(expected, NameOf(number));
            } else {
                expected.push_back(NameOf(number));
            }
        }
        EXPECT_LT(number, 1000) << "no change leaves these entries";
        return number;
    }

    static void ExpectWholeEntries(studio::LibraryFile& library, std::int32_t first)
    {
        for (std::int32_t index = first; index < library.Count(); ++index) {
            EXPECT_FALSE(library.JsonAt(index).empty());
            EXPECT_EQ(library.ThumbnailAt(index).size(), 5000U);
        }
    }

    LibraryTest::TemporaryLibrary m_temporary;
};

TEST_F(InterruptedWriting, LeavesWholeChangesWhenKilled)
{
    std::mt19937 dice(11);
    for (int done = 0; done < 500;) {
        const pid_t writer = ::fork();
        if (writer == 0) {
            auto library = m_temporary.Open();
            Change(library, done, 900 - done);
            ::_exit(0);
        }
        // A reader at the same time sees whole changes only.
        auto reader = m_temporary.Open();
        auto changesToSee = 1 + dice() % 15;
        while (changesToSee > 0 && ::waitpid(writer, nullptr, WNOHANG) == 0) {
            changesToSee -= reader.Refresh() ? 1 : 0;
            ExpectWholeEntries(reader, std::max(0, reader.Count() - 5));
        }
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        const int before = std::exchange(done, Done());
        ASSERT_GT(done, before);
        ASSERT_FALSE(HasFailure());
    }
}

TEST_F(InterruptedWriting, EndsInAMessageOnAFullDiskWithTheOldEntriesIntact)
{
    auto library = m_temporary.Open();
    Change(library, 0, 5);
    {
        const CorvexTest::FullDisk disk(static_cast<rlim_t>(m_temporary.Bytes().size() + 30000));
        EXPECT_THAT(
            ErrorOf([&] { Change(library, 5, 300); }),
            testing::AllOf(HasSubstr(m_temporary.Path()), HasSubstr("it is as it was")));
    }
    const int done = Done();
    EXPECT_GT(done, 5);
    EXPECT_LT(done, 100);
    // With some room it goes on.
    Change(library, done, 3);
    EXPECT_EQ(Done(), done + 3);
}

TEST_F(InterruptedWriting, OfAVanishedFileOrFolderIsAMessage)
{
    auto library = m_temporary.Open();
    library.Add(LibraryTest::EntryNamed("kept"));
    for (const std::string& vanishing : {m_temporary.Path(), m_temporary.PathOf("")}) {
        const QString path = QDir::cleanPath(QString::fromStdString(vanishing));
        const QString away = path + QStringLiteral(".away");
        ASSERT_TRUE(QFile::rename(path, away));
        EXPECT_THAT(ErrorOf([&] { library.Add(LibraryTest::EntryNamed("lost")); }),
                    HasSubstr(m_temporary.Path()));
        EXPECT_EQ(NamesIn(library).size(), 1U) << "what is open can still be read";
        ASSERT_TRUE(QFile::rename(away, path));
        auto again = m_temporary.Open();
        EXPECT_THAT(NamesIn(again), testing::ElementsAre("kept"));
    }
}

}  // namespace
