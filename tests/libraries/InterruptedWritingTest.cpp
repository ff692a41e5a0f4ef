#include "FullDisk.h"
#include "SampleMaterials.h"

#include <sys/wait.h>
#include <unistd.h>

namespace {

using CorvexTest::FullDisk;
using LibraryTest::NamesIn;
using testing::HasSubstr;
using testing::IsEmpty;

/// Every third change takes out what the one two before has added.
std::string NameOf(int number)
{
    return "entry " + std::to_string(number % 3 == 2 ? number - 2 : number);
}

std::vector<std::string> NamesAfter(int changes)
{
    std::vector<std::string> names;
    for (int number = 0; number < changes; ++number) {
        if (number % 3 == 2) {
            std::erase(names, NameOf(number));
        } else {
            names.push_back(NameOf(number));
        }
    }
    return names;
}

/// A process of its own that changes a library, and says so after each change that is on the disk.
class Writer {
public:
    Writer(const std::string& library, int first, int count, std::optional<rlim_t> mostBytes = {})
    {
        EXPECT_EQ(::pipe(m_ends), 0);
        m_process = ::fork();
        if (m_process == 0) {
            Write(library, first, count, mostBytes);
            ::_exit(0);
        }
        ::close(m_ends[1]);
    }
    ~Writer() { ::close(m_ends[0]); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// False when there is nothing more to come.
    bool WaitForReport()
    {
        char letter = 0;
        const bool came = ::read(m_ends[0], &letter, 1) == 1;
        m_said.append(came ? 1 : 0, letter);
        return came;
    }
    void End(int signal = 0)
    {
        ::kill(m_process, signal);
        while (WaitForReport()) {
        }
        ::waitpid(m_process, nullptr, 0);
    }
    /// Of the changes.
    [[nodiscard]] int Reported() const
    {
        return static_cast<int>(std::ranges::count(m_said, '\n'));
    }
    [[nodiscard]] std::string Error() const { return m_said.substr(m_said.rfind('\n') + 1); }

private:
    void Write(const std::string& path, int first, int count, std::optional<rlim_t> mostBytes)
    {
        const FullDisk disk(mostBytes.value_or(RLIM_INFINITY));
        std::string error = LibraryTest::ErrorOf([&] {
            auto library = studio::LibraryFile::Open(path, studio::LibraryKind::Materials);
            for (int number = first; number < first + count; ++number) {
                if (number % 3 == 2) {
                    library.Remove(library.IdsNamed(NameOf(number)));
                } else {
                    studio::NewEntry entry = LibraryTest::EntryNamed(NameOf(number));
                    entry.png.assign(5000, 'x');
                    library.Add(entry);
                }
                EXPECT_EQ(::write(m_ends[1], "\n", 1), 1);
            }
        });
        EXPECT_EQ(::write(m_ends[1], error.data(), error.size()), std::ssize(error));
    }

    int m_ends[2];
    pid_t m_process = 0;
    std::string m_said;
};

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
        Writer writer(m_temporary.Path(), m_done, 500 - m_done);
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
        writer.End(SIGKILL);
        ASSERT_EQ(writer.Error(), "");
        const int before = m_done;
        ExpectStateAfter(m_done + writer.Reported());
        ASSERT_GT(m_done, before);
        ASSERT_FALSE(HasFailure());
    }
}

TEST_F(InterruptedWriting, EndsInAMessageOnAFullDiskWithTheOldEntriesIntact)
{
    Writer(m_temporary.Path(), 0, 5).End();
    Writer writer(m_temporary.Path(), 5, 300,
                  static_cast<rlim_t>(m_temporary.Bytes().size() + 30000));
    writer.End();
    const int reported = writer.Reported();
    EXPECT_LT(reported, 100);
    EXPECT_THAT(writer.Error(),
                testing::AllOf(HasSubstr(m_temporary.Path()), HasSubstr("library is as it was")));
    ExpectStateAfter(5 + reported);
    // With some room it goes on.
    Writer(m_temporary.Path(), m_done, 3).End();
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
