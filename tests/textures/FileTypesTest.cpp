#include "textures/TextureFileTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace CorvexMaterial;

TEST(TextureFileTypes, BuildTheExactFilters)
{
    EXPECT_EQ(DialogFilter("Texture", ExtensionsOf(TextureTypeList::All)),
              "Texture (*.BMP;*.JPG;*.GIF;*.PNG;*.TGA;*.TIF;*.PCX;*.DDS)|"
              "*.bmp;*.jpg;*.gif;*.png;*.tga;*.tif;*.pcx;*.dds");
    EXPECT_EQ(DialogFilter("Texture", ExtensionsOf(TextureTypeList::WithoutTranslucency)),
              "Texture (*.BMP;*.JPG;*.GIF;*.TIF;*.PCX;*.DDS)|"
              "*.bmp;*.jpg;*.gif;*.tif;*.pcx;*.dds");
}

TEST(TextureFileTypes, TakeAFilterApartForTheDesktop)
{
    const FilterParts parts = SplitDialogFilter("Some Files (*.AB;*.C)|*.ab;*.c");
    EXPECT_EQ(parts.description, "Some Files");
    EXPECT_EQ(parts.extensions, (std::vector<std::string>{"ab", "c"}));
    EXPECT_TRUE(SplitDialogFilter("").extensions.empty());
    EXPECT_TRUE(SplitDialogFilter("No Patterns ()|").extensions.empty());
}

struct PathCase {
    const char* path;
    bool all;
    bool withoutTranslucency;
};

class TexturePath : public ::testing::TestWithParam<PathCase> {};

TEST_P(TexturePath, IsJudgedByItsExtensionAlone)
{
    EXPECT_EQ(IsListed(GetParam().path, TextureTypeList::All), GetParam().all);
    EXPECT_EQ(IsListed(GetParam().path, TextureTypeList::WithoutTranslucency),
              GetParam().withoutTranslucency);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, TexturePath,
    ::testing::Values(PathCase{"/t/stone.bmp", true, true}, PathCase{"/t/stone.JpG", true, true},
                      PathCase{"stone.TIF", true, true}, PathCase{"/t/a.b/stone.png", true, false},
                      PathCase{"/t/stone.Tga", true, false},
                      PathCase{"/t/stone.jpeg", false, false},
                      PathCase{"/t/stone.tiff", false, false},
                      PathCase{"/t/stone.bmp.exe", false, false},
                      PathCase{"/t/pictures.bmp/stone", false, false},
                      PathCase{"/t/stone.bmp ", false, false}, PathCase{"/t/bmp", false, false},
                      PathCase{"/t/stone.", false, false}, PathCase{"", false, false}));

}  // namespace
