#include "ErrorMatch.h"
#include "TemporaryFolder.h"
#include <CorvexMaterial/QtPlatform.h>

#include <sys/wait.h>
#include <unistd.h>

using namespace CorvexMaterial;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Optional;

namespace {

class TemporaryFilesTest : public testing::Test {
protected:
    TemporaryFilesTest() { qputenv("temp", m_folder.path().toLocal8Bit() + "/"); }
    ~TemporaryFilesTest() override { qunsetenv("temp"); }

    TemporaryFiles& Files() { return m_platform.Get().temporaryFiles; }

    QTemporaryDir m_folder;
    QtPlatform m_platform;
};

std::string WithoutExtension(const std::string& path)
{
    return path.substr(0, path.rfind('.'));
}

}  // namespace

TEST_F(TemporaryFilesTest, ClaimedFileIsNewEmptyPrivateAndInTheFolder)
{
    EXPECT_EQ(Files().Folder(), m_folder.path().toStdString());
    const std::string path = Files().Claim("pov");
    EXPECT_THAT(path, MatchesRegex(m_folder.path().toStdString() + "/~CVX[0-9]+\\.pov"));
    const QFileInfo file(QString::fromStdString(path));
    EXPECT_TRUE(file.isFile());
    EXPECT_EQ(file.size(), 0);
    EXPECT_FALSE(file.permission(QFile::ReadGroup) || file.permission(QFile::ReadOther));
}

TEST_F(TemporaryFilesTest, NoNumberIsUsedTwiceWhateverTheExtension)
{
    QtPlatform second;
    std::set<std::string> names;
    for (int i = 0; i < 20; ++i) {
        names.insert(WithoutExtension(Files().Claim("pov")));
        names.insert(WithoutExtension(second.Get().temporaryFiles.Claim("rib")));
    }
    EXPECT_EQ(names.size(), 40U);
    QtPlatform third;
    const std::string left = Files().Folder() + "/~CVX" + std::to_string(4194305 + ::getpid());
    ASSERT_TRUE(QFile(QString::fromStdString(left + ".jpg")).open(QIODevice::WriteOnly));
    EXPECT_NE(WithoutExtension(third.Get().temporaryFiles.Claim("pov")), left);
}

TEST_F(TemporaryFilesTest, ALeftOverLinkIsNeverFollowed)
{
    QTemporaryDir elsewhere;
    const std::string path = Files().Claim("jpg");
    ASSERT_TRUE(QFile::remove(QString::fromStdString(path)));
    ASSERT_TRUE(QFile::link(elsewhere.filePath("victim"), QString::fromStdString(path)));
    QtPlatform second;
    EXPECT_NE(second.Get().temporaryFiles.Claim("jpg"), path);
    EXPECT_FALSE(QFile::exists(elsewhere.filePath("victim")));
}

/// Lets another process claim files and make a folder, and be killed; it ends by itself otherwise.
void LeaveBehind(TemporaryFiles& files, const std::string& folder)
{
    const pid_t process = ::fork();
    if (process == 0) {
        const std::string scene = files.Claim("pov");
        files.Write(WithoutExtension(scene) + ".ini", "text");
        const TemporaryFolder work("render", folder);
        std::filesystem::create_directory_symlink("/usr", work.FilePath("link"));
        std::filesystem::create_directories(work.FilePath("a/b"));
        ::raise(SIGKILL);
    }
    ::waitpid(process, nullptr, 0);
}

TEST_F(TemporaryFilesTest, WhatAKilledProcessLeftIsRemovedAndNothingElse)
{
    const auto names = [this] {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    };
    QDir(m_folder.path()).mkpath("corvex-render-abcdef/kept");
    QDir(m_folder.path()).mkpath("corvex-notes");
    for (const char* other : {"~CVX1.pov", "~CVXx.lock", "~CVX2.txt", "x~CVX3.lock"}) {
        QFile(m_folder.filePath(other)).open(QIODevice::WriteOnly);
    }
    ASSERT_TRUE(QFile::link("/usr", m_folder.filePath("corvex-render-ghijkl")));
    ASSERT_TRUE(QFile::link(m_folder.filePath("~CVX2.txt"), m_folder.filePath("~CVX2.lock")));
    const std::string scene = Files().Claim("pov");
    const TemporaryFolder work("render", m_folder.path().toStdString());
    const QStringList before = names();

    LeaveBehind(Files(), m_folder.path().toStdString());
    ASSERT_EQ(names().size(), before.size() + 4);
    const QtPlatform next;
    EXPECT_EQ(names(), before);
    EXPECT_TRUE(QFile::exists("/usr/bin"));

    Files().Remove(scene);
    EXPECT_EQ(names().size(), before.size() - 2) << "the lock goes with the last file";
}

TEST_F(TemporaryFilesTest, AFolderThatCannotBeUsedIsNamed)
{
    qputenv("temp", "/no/such/folder");
    EXPECT_THAT(FileFailure([&] { Files().Claim("pov"); }), Optional(HasSubstr("/no/such/folder")));
}

TEST_F(TemporaryFilesTest, RemovingIsQuietAboutAMissingFileOnly)
{
    const std::string path = Files().Claim("ini");
    Files().Remove(path);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path)));
    EXPECT_EQ(FileFailure([&] { Files().Remove(path); }), std::nullopt);
    EXPECT_THAT(FileFailure([&] { Files().Remove(Files().Folder()); }),
                Optional(HasSubstr(Files().Folder())));
}

TEST(TemporaryFolderTest, IsTheSystemsWithoutTheVariable)
{
    qunsetenv("temp");
    QtPlatform platform;
    const QString folder = QString::fromStdString(platform.Get().temporaryFiles.Folder());
    EXPECT_TRUE(QFileInfo(folder).isDir());
    EXPECT_FALSE(folder.endsWith('/'));
}

TEST(ImageFormatsTest, TiffIsReadAndJpegIsWritten)
{
    QtPlatform platform;
    QTemporaryDir folder;
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_EQ(platform.Get().imageFormats.CanWriteJpeg(), image.save(folder.filePath("a.jpg")));
    ASSERT_TRUE(image.save(folder.filePath("a.tif")));
    EXPECT_EQ(platform.Get().imageFormats.CanReadTiff(),
              !QImage(folder.filePath("a.tif")).isNull());
}
