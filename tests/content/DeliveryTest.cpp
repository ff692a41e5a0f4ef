#include "SampleFolder.h"
#include "ShippedLibraries.h"

#include <QDirIterator>

using studio::DeliverLibraries;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Contents = std::map<std::string, std::string>;

/// A program's libraries and a user's, small ones.
class Delivery : public testing::Test {
protected:
    Delivery()
    {
        Write("shipped/Gems.cvm", "materials");
        Write("shipped/Gems.cvt", "textures");
        Write("shipped/Textures/oak.jpg", "wood");
        Write("shipped/images.stamp", "");
    }

    void Write(const char* name, const char* content) const { m_folder.Write(name, content); }
    [[nodiscard]] QString PathOf(const char* name) const { return m_folder.PathOf(name); }

    [[nodiscard]] QStringList Deliver() const
    {
        return DeliverLibraries(PathOf("shipped"), PathOf("home/libraries"));
    }

    /// Every file that the user has now, hidden ones and leftovers included.
    [[nodiscard]] Contents Delivered() const
    {
        const QDir home(PathOf("home/libraries"));
        Contents contents;
        QDirIterator files(home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            contents[home.relativeFilePath(file).toStdString()] =
                CorvexTest::ContentOf(file).toStdString();
        }
        return contents;
    }

    CorvexTest::SampleFolder m_folder;
};

const Contents kAll{
    {"Gems.cvm", "materials"}, {"Gems.cvt", "textures"}, {"Textures/oak.jpg", "wood"}};

}  // namespace

TEST_F(Delivery, FirstStartCopiesEverythingAndTheNextNothing)
{
    EXPECT_THAT(Deliver(), IsEmpty());
    EXPECT_EQ(Delivered(), kAll);
    EXPECT_THAT(Deliver(), IsEmpty());
    EXPECT_EQ(Delivered(), kAll);
}

TEST_F(Delivery, KeepsWhatTheUserChangedAndAddsWhatIsNewOrMissing)
{
    ASSERT_THAT(Deliver(), IsEmpty());
    Write("home/libraries/Gems.cvm", "the user's");
    QFile::remove(PathOf("home/libraries/Textures/oak.jpg"));
    Write("shipped/Gems.cvm", "newer materials");
    Write("shipped/Textures/pine.jpg", "new wood");
    EXPECT_THAT(Deliver(), IsEmpty());
    Contents expected = kAll;
    expected["Gems.cvm"] = "the user's";
    expected["Textures/pine.jpg"] = "new wood";
    EXPECT_EQ(Delivered(), expected);
}

TEST_F(Delivery, RepairsWhatAPowerCutLeftEmptyOrInPart)
{
    ASSERT_THAT(Deliver(), IsEmpty());
    for (const std::string& left :
         {std::string(), std::string("mat"), std::string("mat\0\0", 5), std::string(9, '\0')}) {
        m_folder.Write("home/libraries/Gems.cvm", QByteArray::fromStdString(left));
        EXPECT_THAT(Deliver(), IsEmpty());
        EXPECT_EQ(Delivered(), kAll) << left.size();
    }
    Write("home/libraries/Gems.cvm", "mats");
    EXPECT_THAT(Deliver(), IsEmpty());
    EXPECT_EQ(Delivered().at("Gems.cvm"), "mats") << "no part of ours";
}

TEST_F(Delivery, LeavesALinkAloneWhateverItLeadsTo)
{
    QDir().mkpath(PathOf("home/libraries"));
    ASSERT_TRUE(QFile::link(PathOf("nowhere"), PathOf("home/libraries/Gems.cvm")));
    EXPECT_THAT(Deliver(), IsEmpty());
    EXPECT_FALSE(QFile::exists(PathOf("nowhere")));
}

TEST_F(Delivery, ReadOnlyOriginalsBecomeWritableCopies)
{
    QFile::setPermissions(PathOf("shipped/Gems.cvm"), QFileDevice::ReadOwner);
    EXPECT_THAT(Deliver(), IsEmpty());
    EXPECT_TRUE(QFileInfo(PathOf("home/libraries/Gems.cvm")).permission(QFileDevice::WriteOwner));
}

TEST_F(Delivery, NamesEachFileThatCannotBeCopied)
{
    Write("home/libraries/Textures", "a file in the folder's place");
    EXPECT_THAT(Deliver(),
                ElementsAre(testing::Property(
                    &QString::toStdString,
                    testing::StartsWith(PathOf("home/libraries/Textures").toStdString()))));
    EXPECT_TRUE(QFile::exists(PathOf("home/libraries/Gems.cvm")));
}

TEST_F(Delivery, IsQuietWhenNothingIsShipped)
{
    EXPECT_THAT(DeliverLibraries({}, PathOf("home/libraries")), IsEmpty());
    EXPECT_FALSE(QFile::exists(PathOf("home/libraries")));
}
