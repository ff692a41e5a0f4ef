#include "MissingTextures.h"
#include "SampleFolder.h"

namespace {

using studio::FindMissingTextures;
using studio::FoundTextures;
using studio::TextureReplacement;
using testing::ElementsAre;

class MissingTextures : public testing::Test {
protected:
    std::string Make(const std::string& name)
    {
        return m_folder.Write(QString::fromStdString(name), "x").toStdString();
    }

    [[nodiscard]] std::string Folder() const { return m_folder.Path().toStdString(); }

private:
    CorvexTest::SampleFolder m_folder;
};

TEST_F(MissingTextures, AreFoundByNameInAnyCaseAndWithEitherSlash)
{
    const std::string brick = Make("walls/Brick.PNG");
    const std::string wood = Make("floors/old/wood.tga");
    Make("floors/wood.tga.bak");
    const FoundTextures found = FindMissingTextures(
        {R"(C:\textures\brick.png)", "/gone/Wood.tga", "/gone/none.png", "/gone/"}, Folder());
    EXPECT_TRUE(found.complete);
    EXPECT_THAT(found.replacements,
                ElementsAre(TextureReplacement{R"(C:\textures\brick.png)", brick},
                            TextureReplacement{"/gone/Wood.tga", wood},
                            TextureReplacement{"/gone/none.png", ""},
                            TextureReplacement{"/gone/", ""}));
}

TEST_F(MissingTextures, OfSeveralTheOneInFoldersOfTheSameNamesWins)
{
    const std::string top = Make("a.png");
    Make("oak/a.png");
    const std::string oak = Make("deep/down/wood/oak/a.png");
    const std::string pine = Make("pine/a.png");
    const FoundTextures found =
        FindMissingTextures({"/x/wood/oak/a.png", "/x/Pine/a.png", "/x/y/a.png"}, Folder());
    EXPECT_THAT(found.replacements, ElementsAre(TextureReplacement{"/x/wood/oak/a.png", oak},
                                                TextureReplacement{"/x/Pine/a.png", pine},
                                                TextureReplacement{"/x/y/a.png", top}));
}

TEST_F(MissingTextures, SearchEndsAtItsBounds)
{
    const std::string deep = Make("1/2/3/a.png");
    std::filesystem::create_directory_symlink(Folder(), Folder() + "/1/loop");
    EXPECT_EQ(FindMissingTextures({"a.png"}, Folder()).replacements.front().found, deep);
    EXPECT_EQ(FindMissingTextures({"a.png"}, Folder(), {100, 2, {}}).replacements.front().found,
              "");
    EXPECT_FALSE(FindMissingTextures({"a.png"}, Folder(), {2, 16, {}}).complete);
    EXPECT_FALSE(FindMissingTextures({"a.png"}, Folder(), {100, 16, [] { return true; }}).complete);
    EXPECT_FALSE(FindMissingTextures({"a.png"}, Folder() + "/none").complete);
}

}  // namespace
