#include "dialogs/ErrorTexts.h"
#include "tests/support/ControlRig.h"

#include <QScrollBar>
#include <QTabBar>

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace CorvexTest;
using CorvexMaterial::IMaterial;
using CorvexMaterial::PromptIcon;
using CorvexMaterial::Status;

/// What differs between the two libraries, as a user sees it.
struct Kind {
    const char* stem;
    const char* extension;
    const char* noun;
    const char* upgrade;
    Status (IMaterial::*load)(const std::string&);
    Status (IMaterial::*release)();
    const char* expanded;

    [[nodiscard]] std::string File(const std::string& name) const { return name + "." + extension; }
    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return "/libraries/" + File(name);
    }
    [[nodiscard]] std::string Control(const char* prefix, const char* suffix = "") const
    {
        return std::string(prefix) + stem + suffix;
    }
    [[nodiscard]] std::string Lower() const
    {
        std::string text = noun;
        text[0] = static_cast<char>(text[0] + ('a' - 'A'));
        return text;
    }
};

constexpr Kind kMaterials{"MaterialLibrary",
                          "cvm",
                          "Material",
                          "upgrade",
                          &IMaterial::LoadMaterialLibrary,
                          &IMaterial::pReleaseMaterialLibrarySelection,
                          "Event.MaterialLibraryExpanded"};
constexpr Kind kTextures{"TextureLibrary",
                         "cvt",
                         "Texture",
                         "Upgrade",
                         &IMaterial::LoadTextureLibrary,
                         &IMaterial::pReleaseTextureLibrarySelection,
                         "Event.TextureLibraryExpanded"};

class LibraryFixture {
protected:
    explicit LibraryFixture(const Kind& shown) : kind(shown)
    {
        rig.host.materialLibrary.materials.resize(3);
        rig.host.materialLibrary.materials[1].Color = 255;
        rig.host.textureLibrary.files = {"/t/agate.png", "/t/onyx.png", "/t/jade.png"};
        rig.platform.libraryFiles.paths.insert(kind.Path("Wood"));
        rig.Start();
        rig.Control().put_bTexturePanel(true);
        rig.Control().put_bMaterialLibraryPanel(true);
        Forget();
    }

    void Forget()
    {
        rig.log.Clear();
        rig.statusTexts.clear();
        rig.warnings.clear();
        rig.platform.prompts.shown.clear();
    }
    Status Load(const std::string& name) { return (rig.Control().*kind.load)(name); }
    QWidget& Button(const char* suffix)
    {
        return rig.Find<QWidget>(kind.Control("cmd", suffix).c_str());
    }
    QComboBox& List() { return rig.Find<QComboBox>(kind.Control("cbo").c_str()); }
    QScrollBar& Bar() { return rig.Find<QScrollBar>(kind.Control("vsb").c_str()); }
    RecordingEditport& Browser()
    {
        return dynamic_cast<RecordingEditport&>(rig.Find<QWidget>(kind.Control("dfe").c_str()));
    }
    std::string SavedName()
    {
        rig.Terminate();
        return rig.platform.settings.Get(kind.stem).value_or("none");
    }
    void OnOpening(const std::function<void()>& act)
    {
        rig.host.materialLibrary.opening = act;
        rig.host.textureLibrary.opening = act;
    }
    std::vector<std::string> Opened()
    {
        return rig.log.DetailsOf(std::string(kind.stem) + ".Open");
    }
    bool CanChange()
    {
        EXPECT_EQ(Button("Add").isEnabled(), Button("Delete").isEnabled());
        return Button("Add").isEnabled();
    }
    void ExpectStatusTexts(const std::vector<QString>& texts) { EXPECT_EQ(rig.statusTexts, texts); }
    QString Loading() { return QStringLiteral("Loading %1 Library").arg(kind.noun); }
    QString Loaded() { return QStringLiteral("%1 Library Loaded").arg(kind.noun); }

    const Kind& kind;
    ControlRig rig;
};

class EachLibrary : public LibraryFixture, public testing::TestWithParam<const Kind*> {
protected:
    EachLibrary() : LibraryFixture(*GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Kinds, EachLibrary, testing::Values(&kMaterials, &kTextures),
                         [](const auto& row) { return std::string(row.param->noun); });

TEST_P(EachLibrary, LoadsStepByStepAndIsLockedMeanwhile)
{
    bool couldChange = true;
    OnOpening([&] { couldChange = CanChange(); });
    EXPECT_EQ(Load(kind.File("Wood")), Status::Success);
    EXPECT_FALSE(couldChange);
    EXPECT_TRUE(CanChange());
    const std::string open = std::string(kind.stem) + ".Open";
    const std::string close = std::string(kind.stem) + ".CloseLibrary";
    EXPECT_EQ(rig.log.Order(), (std::vector<std::string>{
                                   "ApplicationState.LibraryFolder", "Event.DisplayMiscInformation",
                                   "Editport.Clear", close, "LibraryFiles.Exists",
                                   "LibraryFiles.MakeWritable", "LibraryFiles.NamesIn", open,
                                   "Editport.ShowItems", "Event.DisplayMiscInformation"}));
    EXPECT_EQ(Opened(), std::vector{kind.Path("Wood")});
    EXPECT_EQ(rig.log.DetailsOf("LibraryFiles.MakeWritable"), std::vector{kind.Path("Wood")});
    EXPECT_NE(rig.log.DetailsOf("Editport.ShowItems")[0].find(" 3"), std::string::npos);
    ExpectStatusTexts({Loading(), Loaded()});
    EXPECT_EQ(List().count(), 2);
    EXPECT_EQ(List().currentText().toStdString(), kind.File("Wood"));
    EXPECT_EQ(rig.Changes(), 0U);
}

TEST_P(EachLibrary, MissingFileIsToldOnceAndKeepsItsName)
{
    EXPECT_EQ(Load(kind.File("Lost")), Status::FileFailed);
    ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
    const auto& message = rig.platform.prompts.shown[0];
    EXPECT_EQ(message.icon, PromptIcon::Information);
    EXPECT_EQ(message.title, "Corvex");
    EXPECT_EQ(message.text, std::string(kind.noun) + " Library '" + kind.File("Lost") +
                                "' not found. It was likely moved, or deleted due to a Corvex " +
                                kind.upgrade + ". Please reselect your preferred " + kind.Lower() +
                                " library.");
    EXPECT_EQ(rig.log.CountOf("Editport.Clear"), 1U);
    EXPECT_EQ(rig.log.CountOf(std::string(kind.stem) + ".CloseLibrary"), 1U);
    EXPECT_EQ(rig.log.CountOf("Editport.ShowItems") + rig.log.CountOf("LibraryFiles.NamesIn"), 0U);
    ExpectStatusTexts({Loading()});
    EXPECT_FALSE(CanChange());
    EXPECT_EQ(List().count(), 2);
    EXPECT_EQ(List().currentIndex(), -1);
    EXPECT_EQ(SavedName(), kind.File("Lost"));
    rig.Start();
    EXPECT_EQ(rig.platform.prompts.shown.size(), 2U) << "told again by the next start";
}

TEST_P(EachLibrary, AbsolutePathIsTakenAndShownAsItIs)
{
    const std::string path = "/elsewhere/My Stones." + std::string(kind.extension);
    rig.platform.libraryFiles.paths.insert(path);
    EXPECT_EQ(Load(path), Status::Success);
    EXPECT_EQ(Opened(), std::vector{path});
    EXPECT_EQ(List().currentIndex(), -1);
    EXPECT_EQ(List().placeholderText().toStdString(), path);
    EXPECT_EQ(SavedName(), path);
}

TEST_P(EachLibrary, ChoiceInTheListIsLoadedByItsName)
{
    Choose(List(), QString::fromStdString(kind.File("Wood")));
    EXPECT_EQ(Opened(), std::vector{kind.Path("Wood")});
    EXPECT_EQ(SavedName(), kind.File("Wood"));
}

TEST_P(EachLibrary, AddAndDeleteChangeTheFileAndLoadItAgain)
{
    rig.Control().put_TextureFileName("/t/mine.png");
    Forget();
    Click(Button("Add"));
    const std::string addName = std::string(kind.stem) + ".Add" + kind.noun + "ToLibrary";
    const std::string deleteName = std::string(kind.stem) + ".Delete" + kind.noun + "FromLibrary";
    const std::string open = std::string(kind.stem) + ".Open";
    EXPECT_EQ(rig.log.Order({addName, open}), (std::vector{addName, open}));
    EXPECT_NE(rig.log.DetailsOf("Editport.ShowItems").at(0).find(" 4"), std::string::npos);

    Browser().selected = 1;
    Forget();
    Click(Button("Delete"));
    EXPECT_EQ(rig.log.DetailsOf(deleteName), std::vector<std::string>{"1"});
    EXPECT_EQ(rig.log.Order({deleteName, open}), (std::vector{deleteName, open}));
    ExpectStatusTexts({Loading(), Loaded()});
    EXPECT_TRUE(rig.platform.prompts.shown.empty()) << "deleting asks nothing";

    Browser().selected = -1;
    Forget();
    Click(Button("Delete"));
    EXPECT_EQ(rig.log.Order({deleteName, open}).size(), 0U);
    EXPECT_EQ(rig.Changes(), 0U);
}

TEST_P(EachLibrary, DialogIsAnnouncedAndItsFileLoaded)
{
    const std::string elsewhere = "/elsewhere/Metal." + std::string(kind.extension);
    struct Case {
        std::string typed;
        std::string created;
        std::string name;
    };
    const Case cases[] = {
        {kind.Path("Wood"), "", kind.File("Wood")},
        {elsewhere, elsewhere, elsewhere},
        {"/elsewhere/Glass", kind.File("/elsewhere/Glass"), kind.File("/elsewhere/Glass")},
        {"/libraries/Glass.v2", kind.Path("Glass.v2"), kind.File("Glass.v2")},
    };
    const auto create = [this](const std::string& path) {
        rig.platform.libraryFiles.paths.insert(path);
    };
    rig.host.materialLibrary.creating = create;
    rig.host.textureLibrary.creating = create;
    for (const Case& row : cases) {
        Forget();
        rig.platform.choosers.files = {row.typed};
        Click(Button("Functions"));
        ASSERT_EQ(rig.warnings.size(), 1U);
        EXPECT_EQ(rig.warnings[0].key, kind.stem);
        EXPECT_EQ(rig.warnings[0].text.toStdString(),
                  "You can create a new " + kind.Lower() +
                      " library by typing a new library name and clicking \"Open\".");
        EXPECT_EQ(rig.log.Order({"Event.evtReqWarn", "Choosers.ChooseFile"}),
                  (std::vector<std::string>{"Event.evtReqWarn", "Choosers.ChooseFile"}));
        const auto created = rig.log.DetailsOf(std::string(kind.stem) + ".CreateLibrary");
        EXPECT_EQ(created,
                  row.created.empty() ? std::vector<std::string>{} : std::vector{row.created});
        EXPECT_EQ(Opened().size(), 1U) << row.typed;
        const QComboBox& list = List();
        EXPECT_EQ(
            (list.currentIndex() < 0 ? list.placeholderText() : list.currentText()).toStdString(),
            row.name);
    }
    Forget();
    Click(Button("Functions"));  // cancelled
    EXPECT_EQ(rig.warnings.size(), 1U);
    EXPECT_TRUE(Opened().empty());
    EXPECT_TRUE(CanChange());
}

TEST_P(EachLibrary, HostThatMakesNoLibrariesLeavesAMissingOne)
{
    rig.platform.choosers.files = {kind.Path("New")};
    Click(Button("Functions"));
    ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.platform.prompts.shown[0].icon, PromptIcon::Information);
    EXPECT_FALSE(CanChange());
}

TEST_P(EachLibrary, FailedOpeningEmptiesThePanelUntilTheNextLoad)
{
    rig.log.FailEach(std::string(kind.stem) + ".Open", Fault::ClassifiedError);
    EXPECT_EQ(Load(kind.File("Wood")), Status::FileFailed);
    EXPECT_EQ(rig.platform.prompts.shown.at(0).title, CorvexMaterial::kErrorBoxTitle);
    EXPECT_FALSE(CanChange());
    EXPECT_EQ(rig.log.CountOf("Editport.ShowItems"), 0U);
    rig.log.Clear();
    EXPECT_EQ(Load(kind.File("Gems")), Status::Success);
    EXPECT_TRUE(CanChange());
}

TEST_P(EachLibrary, RowsBeyondSixteenBitsAreAnErrorThatChangesNothing)
{
    const std::string more = kind.Control("cmd", "More");
    auto& browser = Browser();
    // As many presses as it takes would take long; the last row is what counts.
    for (int press = 1; press < std::numeric_limits<std::int16_t>::max(); ++press) {
        rig.Find<QAbstractButton>(more.c_str()).click();
    }
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    const int height = browser.height();
    Forget();
    rig.Find<QAbstractButton>(more.c_str()).click();
    EXPECT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.log.CountOf(kind.expanded), 0U);
    EXPECT_EQ(browser.height(), height);
}

TEST_P(EachLibrary, ScrollBarAndBrowserFollowEachOther)
{
    Browser().listener->Scrolled({136, 680, 68, 34});
    EXPECT_EQ(Bar().value(), 136);
    EXPECT_EQ(Bar().maximum(), 680);
    EXPECT_EQ(Bar().pageStep(), 68);
    EXPECT_EQ(rig.log.CountOf("Editport.ScrollTo"), 0U) << "no echo";
    Bar().setValue(204);
    EXPECT_NE(rig.log.DetailsOf("Editport.ScrollTo").at(0).find(" 204"), std::string::npos);
    EXPECT_EQ((rig.Control().*kind.release)(), Status::Success);
    EXPECT_EQ(rig.log.CountOf("Editport.ReleaseSelection"), 1U);
}

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
    Browser().listener->ItemOpened(0);
    EXPECT_EQ(rig.Previewed(), CorvexDB::udtMaterial());
}

TEST_F(MaterialLibrary, AddedMaterialIsTheOneOfThePanel)
{
    Type(rig.Field("txtSpecular"), "70");
    rig.Control().put_TextureBumpmapFileName("/t/bump.png");
    Click(Button("Add"));
    EXPECT_EQ(rig.host.materialLibrary.materials.back(), rig.Previewed());
    EXPECT_EQ(rig.host.materialLibrary.materials.back().Specular, 70);
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
    EXPECT_EQ(rig.platform.prompts.shown[0].title, "Corvex");
    EXPECT_EQ(rig.platform.prompts.shown[0].text,
              "The primary texture is disabled because a raytracing material is active.");
    EXPECT_EQ(rig.log.CountOf("TextureLibrary.SelectedLibraryTexture"), 0U);
    EXPECT_EQ(Previewed().primary, "/t/simulation.png");
}

TEST_F(TextureLibrary, AddTakesTheCurrentLayersFileAndNothingFromAnEmptyLayer)
{
    rig.Control().put_TextureBumpmapFileName("/t/bump.png");
    auto& tabs = rig.Find<QTabBar>("tabChannels");
    tabs.setCurrentIndex(4);
    Click(Button("Add"));
    EXPECT_EQ(rig.host.textureLibrary.files.back(), "/t/bump.png");
    tabs.setCurrentIndex(5);
    Forget();
    Click(Button("Add"));
    EXPECT_EQ(rig.log.CountOf("TextureLibrary.AddTextureToLibrary"), 0U);
    EXPECT_TRUE(Opened().empty());
    EXPECT_EQ(rig.statusTexts.size(), 1U) << "the user is told why";
}

TEST_F(TextureLibrary, FileNamePropertyOpensTheLibrary)
{
    EXPECT_EQ(rig.Control().put_stTextureLibraryFilename("Wood.cvt"), Status::Success);
    EXPECT_EQ(Opened(), std::vector{kind.Path("Wood")});
    std::string name;
    EXPECT_EQ(rig.Control().get_stTextureLibraryFilename(name), Status::Success);
    EXPECT_EQ(name, "Wood.cvt");
}

}  // namespace
