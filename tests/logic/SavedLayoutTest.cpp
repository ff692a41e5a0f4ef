#include "SavedStateFixture.h"

namespace CorvexMaterial {

namespace {

using SavedLayoutTest = SavedStateFixture;

TEST_F(SavedLayoutTest, EmptyStoreGivesOneRowEachCollapsedPanelsAndTheBackgrounds)
{
    const SavedLayout layout = state.LoadLayout();
    EXPECT_EQ(layout.textureRows, 1);
    EXPECT_EQ(layout.materialRows, 1);
    EXPECT_FALSE(layout.materialPanel || layout.textureLibraryPanel || layout.materialLibraryPanel);
    EXPECT_EQ(layout.materialBackground, 15663086);
    EXPECT_EQ(layout.previewBackground, 15663086);
    EXPECT_EQ(layout.textureBackground, 16777215);
}

TEST_F(SavedLayoutTest, UnusableRowsAndFlagsAreReplaced)
{
    store.values = {{"TextureRows", "-3"},
                    {"MaterialRows", "many"},
                    {"MaterialPanel", "perhaps"},
                    {"TextureLibraryPanel", "-1"},
                    {"MaterialLibraryPanel", "tRUE"},
                    {"ColorBackgroundMaterial", "255"},
                    {"ColorBackgroundTexture", "12,5"}};
    const SavedLayout layout = state.LoadLayout();
    EXPECT_EQ(layout.textureRows, 1);
    EXPECT_EQ(layout.materialRows, 1);
    EXPECT_FALSE(layout.materialPanel);
    EXPECT_TRUE(layout.textureLibraryPanel);
    EXPECT_TRUE(layout.materialLibraryPanel);
    EXPECT_EQ(layout.materialBackground, 255);
    EXPECT_EQ(layout.previewBackground, 255);
    EXPECT_EQ(layout.textureBackground, 16777215);

    store.values["TextureRows"] = "2147483647";
    constexpr int kWidestWidget = 16'777'215;
    EXPECT_LT(state.LoadLayout().textureRows, kWidestWidget / 66);
}

}  // namespace

}  // namespace CorvexMaterial
