#include "ErrorMatch.h"
#include "FileSet.h"
#include "FullDisk.h"
#include "SampleFolder.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace CorvexMaterial;
using testing::AllOf;
using testing::HasSubstr;
using testing::Optional;

namespace {

class FileWritingTest : public testing::Test {
protected:
    [[nodiscard]] std::string PathOf(const QString& name) const
    {
        return m_folder.PathOf(name).toStdString();
    }
    [[nodiscard]] std::string ContentOf(const QString& name) const
    {
        QFile file(m_folder.PathOf(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(unread)";
    }
    [[nodiscard]] mode_t ModeOf(const QString& name) const
    {
        struct stat file {};
        EXPECT_EQ(::lstat(PathOf(name).c_str(), &file), 0);
        return file.st_mode & 0777;
    }
    [[nodiscard]] QStringList Names() const
    {
        return QDir(m_folder.Path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    CorvexTest::SampleFolder m_folder;
};

}  // namespace

TEST_F(FileWritingTest, KeepsPermissionsAndFollowsLinksOfWhatLasts)
{
    m_folder.Write("there", "old");
    ::chmod(PathOf("there").c_str(), 0640);
    ASSERT_EQ(::symlink("there", PathOf("link").c_str()), 0);
    ASSERT_EQ(::symlink("not yet", PathOf("dangling").c_str()), 0);
    WriteFile(PathOf("link"), std::string("new"));
    WriteFile(PathOf("dangling"), std::string("new"));
    EXPECT_EQ(ContentOf("there"), "new");
    EXPECT_EQ(ModeOf("there"), 0640U);
    EXPECT_EQ(ContentOf("not yet"), "new");
    WriteFile(PathOf("link"), std::string("other"), Lifetime::Temporary);
    EXPECT_EQ(ContentOf("link"), "other");
    EXPECT_EQ(ModeOf("link"), 0600U) << "a link in a shared folder may lead anywhere";
    EXPECT_EQ(ContentOf("there"), "new");
}

TEST_F(FileWritingTest, ShowsNothingBeforeTheEndAndLeavesNothingWithout)
{
    const std::string longest(255, 'n');
    FileWriter file(PathOf(QString::fromStdString(longest)));
    file.Write(std::string("one "));
    {
        FileWriter dropped(PathOf("dropped"));
        dropped.Write(std::string("lost"));
    }
    EXPECT_EQ(Names(), QStringList());
    file.Write(std::string("two"));
    file.Finish();
    EXPECT_EQ(ContentOf(QString::fromStdString(longest)), "one two");
    EXPECT_EQ(Names().size(), 1);
}

TEST_F(FileWritingTest, NamesTheFileAndTheReason)
{
    QDir().mkdir(m_folder.PathOf("folder"));
    m_folder.Write("file", "old");
    ASSERT_EQ(::symlink("circle", PathOf("circle").c_str()), 0);
    ASSERT_EQ(::symlink("/dev/full", PathOf("full").c_str()), 0);
    ASSERT_EQ(::mkfifo(PathOf("pipe").c_str(), 0600), 0);
    const QStringList before = Names();
    for (const auto& [name, reason] : {std::pair("folder", "Is a directory"),
                                       std::pair("missing/file", "No such file or directory"),
                                       std::pair("file/below", "Not a directory"),
                                       std::pair("circle", "Too many levels of symbolic links"),
                                       std::pair("full", "No space left on device"),
                                       std::pair("pipe", "No such device or address")}) {
        const std::string path = PathOf(name);
        EXPECT_THAT(FileFailure([&] { WriteFile(path, std::string("new")); }),
                    Optional(AllOf(HasSubstr(path), HasSubstr(reason))));
    }
    const auto make = [&] {
        WriteFile(PathOf("file"), std::string("new"), Lifetime::Lasting, Existing::Kept);
    };
    EXPECT_THAT(FileFailure(make), Optional(HasSubstr("File exists")));
    EXPECT_EQ(ContentOf("file"), "old");
    EXPECT_EQ(Names(), before);
}

TEST_F(FileWritingTest, NeedsANameOfItsOwnOnlyForAMomentAndNoneThatSomebodyElseKeeps)
{
    const int watch = ::inotify_init1(IN_CLOEXEC);
    ASSERT_GE(::inotify_add_watch(watch, m_folder.Path().toLocal8Bit().constData(), IN_CREATE), 0);
    const auto nameMade = [watch] {
        alignas(inotify_event) std::array<char, 4096> events{};
        EXPECT_GT(::read(watch, events.data(), events.size()), 0);
        return QString(reinterpret_cast<const inotify_event*>(events.data())->name);
    };
    WriteFile(PathOf("out"), std::string("first"));
    EXPECT_EQ(nameMade(), "out") << "a program killed now leaves another file behind";
    WriteFile(PathOf("out"), std::string("old"));
    const QString passing = nameMade();
    ::close(watch);
    WriteFile(PathOf(passing), std::string("left of a program"));
    CorvexMaterial::RemoveLeftover(PathOf("out"));
    EXPECT_EQ(Names(), QStringList("out"));
    ASSERT_TRUE(QDir(m_folder.Path()).mkdir(passing)) << passing.toStdString();
    WriteFile(PathOf("out"), std::string("new"));
    EXPECT_EQ(ContentOf("out"), "new");
    EXPECT_THAT(Names(), testing::UnorderedElementsAre(passing, QString("out")));
}

TEST_F(FileWritingTest, AppendsToAnOpenFileNamedByItsNumber)
{
    const int file = ::open(PathOf("out").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    ASSERT_EQ(::write(file, "before ", 7), 7);
    WriteFile("/dev/fd/" + std::to_string(file), std::string("after"));
    ::close(file);
    EXPECT_EQ(ContentOf("out"), "before after");
}

TEST_F(FileWritingTest, ASetOfFilesIsWrittenWhollyOrNotAtAll)
{
    m_folder.Write("first", "old");
    for (const bool isStopped : {true, false}) {
        std::stop_source stop;
        {
            FileSet files(stop.get_token());
            files.Add(PathOf("first")).Write(std::string("new"));
            files.Add(PathOf("second")).Write(std::string("new"));
            files.WillMake(PathOf("made/picture"));
            MakeFolder(PathOf("made"));
            WriteFile(PathOf("made/picture"), std::string("new"));
            if (isStopped) {
                stop.request_stop();
                EXPECT_THROW(files.Add(PathOf("third")).Write(std::string("new")), Error);
                EXPECT_THROW(files.Finish(), Error);
            } else {
                files.Finish();
            }
        }
        EXPECT_EQ(ContentOf("first"), isStopped ? "old" : "new");
        EXPECT_EQ(Names(),
                  isStopped ? QStringList{"first"} : QStringList({"first", "made", "second"}));
    }
}
