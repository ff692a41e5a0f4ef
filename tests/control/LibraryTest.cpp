#include "ErrorTexts.h"
#include "LibraryFixture.h"

namespace {

using namespace CorvexTest;
using CorvexMaterial::PromptIcon;
using CorvexMaterial::Status;

class EachLibrary : public LibraryFixture, public testing::TestWithParam<const Kind*> {
protected:
    EachLibrary() : LibraryFixture(*GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Kinds, EachLibrary, testing::Values(&kMaterials, &kTextures),
                         [](const auto& row) { return std::string(row.param->noun); });

TEST_P(EachLibrary, LoadsStepByStepAndIsLockedMeanwhile)
{
    bool couldChange = true;
    rig.host.materialLibrary.opening = [&] { couldChange = CanChange(); };
    rig.host.textureLibrary.opening = rig.host.materialLibrary.opening;
    EXPECT_EQ(Load(kind.File("Wood")), Status::Success);
    EXPECT_FALSE(couldChange);
    EXPECT_TRUE(CanChange());
    const std::string open = kind.Named("", ".Open");
    const std::string close = kind.Named("", ".CloseLibrary");
    const CorvexTest::Texts order{
        "Event.DisplayMiscInformation", "Editport.Clear", close, open, "Editport.ShowItems",
        "Event.DisplayMiscInformation"};
    EXPECT_EQ(rig.log.Order(order), order);
    EXPECT_EQ(Opened(), std::vector{kind.Path("Wood")});
    EXPECT_EQ(rig.log.DetailsOf("LibraryFiles.MakeWritable"), std::vector{kind.Path("Wood")});
    EXPECT_NE(rig.log.DetailsOf("Editport.ShowItems")[0].find(" 3"), std::string::npos);
    EXPECT_EQ(rig.statusTexts, (Texts{Loading(), Loaded()}));
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
    EXPECT_THAT(message.text, testing::StartsWith(std::string(kind.noun) + " Library '" +
                                                  kind.File("Lost") + "' not found. "));
    EXPECT_EQ(rig.log.CountOf("Editport.Clear"), 1U);
    EXPECT_EQ(rig.log.CountOf(kind.Named("", ".CloseLibrary")), 1U);
    EXPECT_EQ(rig.log.CountOf("Editport.ShowItems") + rig.log.CountOf("LibraryFiles.NamesIn"), 0U);
    EXPECT_EQ(rig.statusTexts, (Texts{Loading(), NotOpened("Lost")}));
    EXPECT_FALSE(CanChange());
    EXPECT_EQ(List().count(), 2);
    EXPECT_EQ(List().currentIndex(), -1);
    EXPECT_EQ(SavedName(), kind.File("Lost"));
    rig.Start();
    EXPECT_EQ(rig.platform.prompts.shown.size(), 2U) << "told again by the next start";
}

TEST_P(EachLibrary, IsKnownByThePathOrTheNameAsGiven)
{
    const std::string path = "/elsewhere/My Stones." + std::string(kind.extension);
    rig.platform.libraryFiles.paths.insert(path);
    EXPECT_EQ(Load(path), Status::Success);
    EXPECT_EQ(Opened(), std::vector{path});
    EXPECT_EQ(List().currentIndex(), -1);
    EXPECT_EQ(List().placeholderText().toStdString(), path);
    EXPECT_EQ(Load(""), Status::FileFailed);
    EXPECT_EQ(List().currentIndex(), -1) << "no name chooses no library";
    Choose(List(), QString::fromStdString(kind.File("Wood")));
    EXPECT_EQ(Opened().back(), kind.Path("Wood"));
    EXPECT_EQ(SavedName(), kind.File("Wood"));
}

TEST_P(EachLibrary, AddAndDeleteChangeTheFileAndLoadItAgain)
{
    rig.Control().put_TextureFileName("/t/mine.png");
    Forget();
    Click(Button("Add"));
    const std::string addName = kind.Named("", ".Add") + kind.noun + "ToLibrary";
    const std::string deleteName = kind.Named("", ".Delete") + kind.noun + "FromLibrary";
    const std::string open = kind.Named("", ".Open");
    EXPECT_EQ(rig.log.Order({addName, open}), (std::vector{addName, open}));
    EXPECT_NE(rig.log.DetailsOf("Editport.ShowItems").at(0).find(" 4"), std::string::npos);

    Browser().selected = 1;
    Forget();
    Click(Button("Delete"));
    EXPECT_EQ(rig.log.DetailsOf(deleteName), std::vector<std::string>{"1"});
    EXPECT_EQ(rig.log.Order({deleteName, open}), (std::vector{deleteName, open}));
    EXPECT_EQ(rig.statusTexts, (Texts{Loading(), Loaded()}));
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
        EXPECT_EQ(rig.warnings[0].key.toStdString(), kind.Named(""));
        const CorvexTest::Texts order{"Event.evtReqWarn", "Choosers.ChooseFile"};
        EXPECT_EQ(rig.log.Order(order), order);
        EXPECT_EQ(rig.log.DetailsOf(kind.Named("", ".CreateLibrary")),
                  CorvexTest::Texts(row.created.empty() ? 0 : 1, row.created));
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

    rig.host.materialLibrary.creating = {};  // a host that makes no libraries
    rig.host.textureLibrary.creating = {};
    rig.platform.choosers.files = {kind.Path("New")};
    Click(Button("Functions"));
    EXPECT_EQ(rig.platform.prompts.shown.at(0).icon, PromptIcon::Information);
    EXPECT_FALSE(CanChange());
}

TEST_P(EachLibrary, FailedOpeningEmptiesThePanelUntilTheNextLoad)
{
    rig.log.FailEach(kind.Named("", ".Open"), Fault::ClassifiedError);
    EXPECT_EQ(Load(kind.File("Wood")), Status::FileFailed);
    EXPECT_EQ(rig.platform.prompts.shown.at(0).title, CorvexMaterial::kBoxTitle);
    EXPECT_FALSE(CanChange());
    EXPECT_EQ(rig.log.CountOf("Editport.ShowItems"), 0U);
    EXPECT_EQ(rig.statusTexts, (Texts{Loading(), NotOpened("Wood")}));
    rig.log.Clear();
    EXPECT_EQ(Load(kind.File("Gems")), Status::Success);
    EXPECT_TRUE(CanChange());
}

TEST_P(EachLibrary, RowsBeyondSixteenBitsAreAnErrorThatChangesNothing)
{
    rig.Terminate();
    for (const char* rows : {"MaterialRows", "TextureRows"}) {
        rig.platform.settings.Put(rows, "32766");
    }
    Start();
    auto& more = Button("More");
    Click(more);
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    const int height = Browser().height();
    Forget();
    Click(more);
    EXPECT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.log.CountOf(kind.Named("Event.", "Expanded")), 0U);
    EXPECT_EQ(Browser().height(), height);
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

}  // namespace
