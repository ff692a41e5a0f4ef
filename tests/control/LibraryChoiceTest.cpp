#include "LibraryFixture.h"
#include "TextureMessages.h"

namespace {

using namespace CorvexTest;
using CorvexMaterial::PromptIcon;
using CorvexMaterial::Status;

class MaterialLibrary : public LibraryFixture, public testing::Test {
protected:
    MaterialLibrary() : LibraryFixture(kMaterials) {}
};

TEST_F(MaterialLibrary, ChosenMaterialFillsThePanelInOneRefresh)
{
    Browser().listener->ItemSelected(1);
    EXPECT_EQ(rig.Changes(), 1U);
    EXPECT_EQ(rig.Previewed().Color, 255);
    std::int32_t colour = 0;
    rig.Control().get_lVBColor(colour);
    EXPECT_EQ(colour, 255);
    Browser().listener->ItemOpened(1);
    EXPECT_EQ(rig.Changes(), 1U) << "a double click is one choice";
    Browser().listener->ItemOpened(0);
    EXPECT_EQ(rig.Changes(), 2U);
    EXPECT_EQ(rig.Previewed(), CorvexDB::udtMaterial());
}

TEST_F(MaterialLibrary, AddedMaterialIsTheOneOfThePanel)
{
    Type(rig.Field("txtSpecular"), "70");
    rig.Control().put_TextureBumpmapFileName("/t/bump.png");
    Click(Button("Add"));
    EXPECT_EQ(rig.host.materialLibrary.items.back(), rig.Previewed());
    EXPECT_EQ(rig.host.materialLibrary.items.back().Specular, 70);

    // Shapes take the files alone now; a library keeps all of the material.
    CorvexDB::udtMaterial shown;
    shown.OverlayTranslucency = 35.0F;
    rig.Control().CopyFieldToFormMaterial(shown);
    rig.Control().put_ApplyRelative(CorvexDB::ApplyMode::FilesOnly);
    Click(Button("Add"));
    EXPECT_EQ(rig.host.materialLibrary.items.back().OverlayTranslucency, 35.0F);
    EXPECT_NE(rig.Previewed().OverlayTranslucency, 35.0F);
}

TEST_F(MaterialLibrary, StartOpensBothSavedLibrariesAndSurvivesTheirAbsence)
{
    rig.Terminate();
    rig.platform.settings.Put("MaterialLibrary", "Wood.cvm");
    Forget();
    rig.Create();
    EXPECT_EQ(rig.Control().LoadSavedStatus(), Status::Success);
    EXPECT_EQ(rig.log.DetailsOf("TextureLibrary.Open"),
              std::vector<std::string>{"/libraries/Gems.cvt"});
    EXPECT_EQ(rig.log.DetailsOf("MaterialLibrary.Open"),
              std::vector<std::string>{"/libraries/Wood.cvm"});

    rig.platform.libraryFiles.paths.clear();
    Forget();
    EXPECT_EQ(rig.Control().LoadSavedStatus(), Status::Success);
    EXPECT_EQ(rig.platform.prompts.shown.size(), 2U);

    rig.platform.libraryFiles.paths = {"/libraries/Wood.cvm", "/libraries/Gems.cvt"};
    Forget();
    rig.log.FailEach("TextureLibrary.Open", Fault::ClassifiedError);
    EXPECT_EQ(rig.Control().LoadSavedStatus(), Status::FileFailed);
    EXPECT_EQ(rig.log.CountOf("MaterialLibrary.Open"), 1U)
        << "the other one is opened all the same";
}

class TextureLibrary : public LibraryFixture, public testing::Test {
protected:
    TextureLibrary() : LibraryFixture(kTextures) {}

    CorvexDB::TextureFiles Previewed() { return rig.Previewed().Textures; }
};

TEST_F(TextureLibrary, ChosenTextureGoesToTheLayerOfTheTab)
{
    using Files = CorvexDB::TextureFiles;
    constexpr std::string Files::*layers[] = {
        &Files::primary,     &Files::primary,    &Files::overlay,     &Files::alpha,
        &Files::bump,        &Files::specular,   &Files::environment, &Files::environment,
        &Files::environment, &Files::environment};
    for (int tab = 0; tab < 10; ++tab) {
        rig.Control().put_TextureEnvironmentMapFileName("");
        rig.Control().put_TextureFileName("");
        rig.Find<QTabBar>("tabChannels").setCurrentIndex(tab);
        Forget();
        Browser().listener->ItemSelected(2);
        EXPECT_EQ(Previewed().*layers[tab], "/t/jade.png") << "tab " << tab + 1;
        EXPECT_EQ(rig.Changes(), 1U);
    }
}

TEST_F(TextureLibrary, ActiveRaytracingMaterialRefusesEveryTexture)
{
    rig.Control().put_TextureFileName("/t/simulation.png");
    rig.Control().put_lRaytraceType(1);
    Forget();
    Browser().listener->ItemSelected(0);
    ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.platform.prompts.shown[0].icon, PromptIcon::Exclamation);
    EXPECT_EQ(rig.platform.prompts.shown[0].text, CorvexMaterial::kPrimaryTextureDisabled);
    EXPECT_EQ(rig.log.CountOf("TextureLibrary.SelectedLibraryTexture"), 0U);
    EXPECT_EQ(Previewed().primary, "/t/simulation.png");
}

TEST_F(TextureLibrary, AddTakesTheCurrentLayersFileAndNothingFromAnEmptyLayer)
{
    rig.Control().put_TextureBumpmapFileName("/t/bump.png");
    auto& tabs = rig.Find<QTabBar>("tabChannels");
    tabs.setCurrentIndex(4);
    Click(Button("Add"));
    EXPECT_EQ(rig.host.textureLibrary.items.back(), "/t/bump.png");
    tabs.setCurrentIndex(5);
    Forget();
    Click(Button("Add"));
    EXPECT_EQ(rig.log.CountOf("TextureLibrary.AddTextureToLibrary"), 0U);
    EXPECT_TRUE(Opened().empty());
    EXPECT_EQ(rig.statusTexts.size(), 1U) << "the user is told why";
}

TEST_F(TextureLibrary, FileNamePropertyOpensTheLibrary)
{
    std::string name;
    EXPECT_EQ(rig.Control().put_stTextureLibraryFilename("Wood.cvt"), Status::Success);
    EXPECT_EQ(rig.Control().get_stTextureLibraryFilename(name), Status::Success);
    EXPECT_EQ(Opened(), std::vector{kind.Path("Wood")});
    EXPECT_EQ(name, "Wood.cvt");
}

}  // namespace
