#include <CorvexMaterial/TextureFileTypes.h>

namespace {

using namespace CorvexMaterial;

TEST(TextureFileTypes, TakeAFilterApartForTheDesktop)
{
    const FilterParts parts = SplitDialogFilter("Some Files (*.AB;*.C)|*.ab;*.c");
    EXPECT_EQ(parts.description, "Some Files");
    EXPECT_EQ(parts.extensions, (std::vector<std::string>{"ab", "c"}));
    EXPECT_TRUE(SplitDialogFilter("").extensions.empty());
    EXPECT_TRUE(SplitDialogFilter("No Patterns ()|").extensions.empty());
}

TEST(TextureFileTypes, JudgeAPathByItsExtensionAlone)
{
    const auto listed = [](const char* path) {
        return std::pair(IsListed(path, TextureTypeList::All),
                         IsListed(path, TextureTypeList::WithoutTranslucency));
    };
    for (const char* path : {"/t/stone.bmp", "/t/stone.JpG", "stone.TIF"}) {
        EXPECT_EQ(listed(path), std::pair(true, true)) << path;
    }
    for (const char* path : {"/t/a.b/stone.png", "/t/stone.Tga"}) {
        EXPECT_EQ(listed(path), std::pair(true, false)) << path;
    }
    for (const char* path : {"/t/stone.jpeg", "/t/stone.tiff", "/t/stone.bmp.exe",
                             "/t/pictures.bmp/stone", "/t/stone.bmp ", "/t/bmp", "/t/stone.", ""}) {
        EXPECT_EQ(listed(path), std::pair(false, false)) << path;
    }
}

}  // namespace
