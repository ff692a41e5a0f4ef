#include "SampleMaterials.h"
#include "Testing.h"
#include "WriterProcess.h"

namespace {

using LibraryTest::NamesIn;
using LibraryTest::WriterProcess;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> NamesAfter(int changes)
{
    std::vector<std::string> names;
    for (int number = 0; number < changes; ++number) {
        const auto change = LibraryTest::ChangeNumber(number);
        if (change.isAdded) {
            names.push_back(change.name);
        } else {
            std::erase(names, change.name);
        }
    }
    return names;
}

class InterruptedWriting : public testing::Test {
protected:
    // Everything that was reported is there, and of the rest at most what was being done.
    void ExpectStateAfter(int reported)
    {
        auto library = m_temporary.Open();
        const auto names = NamesIn(library);
        const bool isNext = names == NamesAfter(reported + 1);
        EXPECT_TRUE(isNext || names == NamesAfter(reported)) << "after change " << reported;
        EXPECT_THAT(library.StructureProblems(), IsEmpty());
        for (std::int32_t index = 0; index < library.Count(); ++index) {
            EXPECT_FALSE(library.JsonAt(index).empty());
            EXPECT_EQ(library.ThumbnailAt(index).size(), 5000U);
        }
        m_done = reported + (isNext ? 1 : 0);
    }

    LibraryTest::TemporaryLibrary m_temporary;
    int m_done = 0;
};

TEST_F(InterruptedWriting, KeepsEveryCommittedChangeWhenKilled)
{
    std::mt19937 dice(11);
    for (int round = 0; m_done < 500; ++round) {
        WriterProcess writer(m_temporary.Path(), m_done, 500 - m_done, WriterProcess::Disk::Free);
        // A reader at the same time sees whole changes only.
        auto reader = m_temporary.Open();
        const auto reportsToWait = 1 + dice() % 15;
        for (std::uint32_t report = 0; report < reportsToWait && writer.WaitForReport(); ++report) {
            reader.Refresh();
            for (std::int32_t index = std::max(0, reader.Count() - 5); index < reader.Count();
                 ++index) {
                ASSERT_FALSE(reader.JsonAt(index).empty());
            }
        }
        writer.Kill();
        ASSERT_EQ(writer.Errors(), QString());
        const int before = m_done;
        ExpectStateAfter(m_done + static_cast<int>(writer.Reported().size()));
        ASSERT_GT(m_done, before);
        ASSERT_FALSE(HasFailure());
    }
}

TEST_F(InterruptedWriting, EndsInAMessageOnAFullDiskWithTheOldEntriesIntact)
{
    WriterProcess first(m_temporary.Path(), 0, 5, WriterProcess::Disk::Free);
    first.WaitForEnd();
    WriterProcess writer(m_temporary.Path(), 5, 300, WriterProcess::Disk::Full);
    writer.WaitForEnd();
    const auto reported = static_cast<int>(writer.Reported().size());
    EXPECT_LT(reported, 100);
    EXPECT_THAT(writer.Errors().toStdString(),
                testing::AllOf(HasSubstr(m_temporary.Path()), HasSubstr("library is as it was")));
    ExpectStateAfter(5 + reported);
    // With some room it goes on.
    WriterProcess more(m_temporary.Path(), m_done, 3, WriterProcess::Disk::Free);
    more.WaitForEnd();
    ExpectStateAfter(m_done + 3);
}

TEST_F(InterruptedWriting, OfAVanishedFileOrFolderIsAMessage)
{
    auto library = m_temporary.Open();
    library.Add(LibraryTest::EntryNamed("kept"));
    for (const std::string& vanishing : {m_temporary.Path(), m_temporary.PathOf("")}) {
        const QString path = QDir::cleanPath(QString::fromStdString(vanishing));
        const QString away = path + QStringLiteral(".away");
        ASSERT_TRUE(QFile::rename(path, away));
        const auto add = [&] { library.Add(LibraryTest::EntryNamed("lost")); };
        EXPECT_THAT(LibraryTest::ErrorOf(add), HasSubstr(m_temporary.Path()));
        EXPECT_EQ(NamesIn(library).size(), 1U) << "what is open can still be read";
        ASSERT_TRUE(QFile::rename(away, path));
        auto again = m_temporary.Open();
        EXPECT_THAT(NamesIn(again), testing::ElementsAre("kept"));
    }
}

}  // namespace
