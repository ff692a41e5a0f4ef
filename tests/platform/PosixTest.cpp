#include "FileWriting.h"
#include "RegularFile.h"
#include "SampleFolder.h"
#include "TemporaryFolder.h"
#include "TerminalText.h"

#include <sys/stat.h>

namespace {

using namespace CorvexMaterial;
using testing::HasSubstr;

TEST(PosixTest, TextForATerminalActsNowhere)
{
    for (const auto& [text, shown] :
         {std::pair<const char*, const char*>("Mörtel 石 \xF0\x9F\xAA\xA8", nullptr),
          {"\x1B[2J\x7F", "\\u001b[2J\\u007f"},
          {"\xC2\x9B|\xE2\x80\xAE|\xF3\xA0\x81\x81", "\\u009b|\\u202e|\\udb40\\udc41"},
          {"\xC0\x9B", "\\xc0\\x9b"},           // written too long
          {"\xED\xA0\x80", "\\xed\\xa0\\x80"},  // half a letter
          {"\xE2\x80", "\\xe2\\x80"}}) {
        EXPECT_EQ(TerminalText(text), shown == nullptr ? text : shown);
    }
}

TEST(PosixTest, AFileIsRefusedForItsSizeAndMissedOnlyWhenItIsNotThere)
{
    const CorvexTest::SampleFolder folder;
    const std::string file = folder.Write("four", "1234").toStdString();
    EXPECT_EQ(RegularFile(file, 4).Obstacle(), "");
    EXPECT_THAT(RegularFile(file, 3).Obstacle(), HasSubstr("larger than"));
    EXPECT_FALSE(RegularFile(file, 3).IsMissing());
    EXPECT_TRUE(RegularFile(file + "/inside", 4).IsMissing());
    const std::string circle = folder.PathOf("circle").toStdString();
    std::filesystem::create_symlink(circle, circle);
    EXPECT_THAT(RegularFile(circle, 4).Obstacle(), HasSubstr("in a circle"));
    EXPECT_FALSE(RegularFile(circle, 4).IsMissing());
}

TEST(PosixTest, AFolderThatOthersMayEnterIsNotSwept)
{
    const CorvexTest::SampleFolder folder;
    for (const int mode : {0700, 0755}) {
        const QString left = folder.PathOf("corvex-job-aBcDeF");
        folder.Write("corvex-job-aBcDeF/.owner", {});
        ASSERT_EQ(::chmod(left.toUtf8(), static_cast<mode_t>(mode)), 0);
        SweepTemporaryFolders(folder.Path().toStdString());
        EXPECT_EQ(QFile::exists(left), mode == 0755);
    }
}

TEST(PosixTest, ANewFileIsAsReadableAsTheUserHasIt)
{
    const CorvexTest::SampleFolder folder;
    const std::string file = folder.PathOf("new").toStdString();
    const mode_t mask = ::umask(022);
    WriteFile(file, std::string("text"));
    ::umask(mask);
    struct stat made {};
    ASSERT_EQ(::stat(file.c_str(), &made), 0);
    EXPECT_EQ(made.st_mode & 0777, 0644U);
}

}  // namespace
