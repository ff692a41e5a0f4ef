#include "ErrorTexts.h"
#include "PanelRig.h"
#include "TextureMessages.h"

namespace {

using namespace CorvexMaterial;
using namespace CorvexTest;

RecordingEditport& BrowserOf(QDialog& dialog)
{
    return dynamic_cast<RecordingEditport&>(FindIn<QWidget>(dialog, "dfeTextureDialog"));
}

class TextureDialog : public ::testing::Test {
protected:
    TextureDialog() { rig.host.textureLibrary.files = {"/t/agate.jpg", "/t/onyx.png"}; }

    bool Open(const std::function<void(QDialog&)>& answer)
    {
        const DialogAnswer dialog([&](QDialog& shown) {
            answer(shown);
            if (shown.isVisible()) {
                shown.reject();
            }
        });
        Click(rig.Find<QPushButton>("cmdTexturePopup"));
        return dialog.Given();
    }

    PanelRig rig;
};

TEST_F(TextureDialog, OpenedTextureGoesToTheLayerOfTheTab)
{
    for (const auto& [tab, layer] : {std::pair{1, TextureLayer::Primary},
                                     {4, TextureLayer::Alpha},
                                     {10, TextureLayer::Environment}}) {
        rig.Enter(tab);
        rig.Page().SetFile(layer, {});
        ASSERT_TRUE(Open([](QDialog& dialog) { BrowserOf(dialog).listener->ItemOpened(1); }));
        EXPECT_EQ(rig.Page().File(layer), "/t/onyx.png") << "tab " << tab;
        EXPECT_EQ(rig.Edits(), 1U);
        rig.Enter(2);
    }
}

TEST_F(TextureDialog, TellsTheStoreWhetherItChose)
{
    ASSERT_TRUE(Open([&](QDialog& dialog) {
        EXPECT_FALSE(FindIn<QPushButton>(dialog, "cmdOK").isEnabled());
        EXPECT_EQ(rig.platform.settings.Get("TextureSelectionComplete"), "0");
        BrowserOf(dialog).listener->ItemSelected(0);
        Click(FindIn<QPushButton>(dialog, "cmdOK"));
    }));
    EXPECT_EQ(rig.platform.settings.Get("TextureSelectionComplete"), "1");
    EXPECT_EQ(rig.log.Order({"Store.Write", "Store.Read", "Event.Edited", "Store.Flush"}),
              (Texts{"Store.Write", "Store.Read", "Store.Write", "Store.Read", "Event.Edited",
                     "Store.Flush"}));

    rig.log.Clear();
    ASSERT_TRUE(Open([&](QDialog& dialog) {
        BrowserOf(dialog).listener->ItemSelected(1);
        Click(FindIn<QPushButton>(dialog, "cmdCancel"));
    }));
    EXPECT_EQ(rig.platform.settings.Get("TextureSelectionComplete"), "0");
    EXPECT_EQ(rig.Page().File(TextureLayer::Primary), "/t/agate.jpg");
    EXPECT_EQ(rig.Edits(), 0U);
}

TEST_F(TextureDialog, HasItsOwnDefaultBackground)
{
    ASSERT_TRUE(Open([](QDialog&) {}));
    ASSERT_TRUE(rig.log.DetailsOf("Editport.SetBackColor").size() == 1);
    EXPECT_NE(rig.log.DetailsOf("Editport.SetBackColor")[0].find("15663086"), std::string::npos);
    rig.log.Clear();
    rig.platform.settings.Put("ColorBackgroundTexture", "255");
    ASSERT_TRUE(Open([](QDialog&) {}));
    EXPECT_NE(rig.log.DetailsOf("Editport.SetBackColor")[0].find("255"), std::string::npos);
}

TEST_F(TextureDialog, StaysShutWhileASimulationHoldsThePrimaryTexture)
{
    rig.simulationActive = true;
    for (const int tab : {1, 2}) {
        rig.Enter(tab);
        EXPECT_FALSE(Open([](QDialog&) {})) << "tab " << tab;
        EXPECT_EQ(rig.LastMessage().text, kPrimaryTextureDisabled);
        EXPECT_EQ(rig.LastMessage().icon, PromptIcon::Exclamation);
        EXPECT_EQ(rig.LastMessage().title, kBoxTitle);
        EXPECT_EQ(rig.log.CountOf("Store.Write"), 0U);
    }
    rig.Enter(3);
    EXPECT_TRUE(Open([](QDialog&) {}));
}

TEST_F(TextureDialog, EveryFailingCallLeavesThePanelUsable)
{
    const auto choose = [](QDialog& dialog) {
        BrowserOf(dialog).listener->ItemSelected(0);
        FindIn<QPushButton>(dialog, "cmdOK").click();
    };
    rig.log.Clear();
    Open(choose);
    const std::size_t calls = rig.log.Entered();
    ASSERT_GT(calls, 8U);
    for (std::size_t call = 0; call < calls; ++call) {
        rig.log.Clear();
        rig.log.FailCall(call, Fault::UnknownObject);
        Open(choose);
        ASSERT_TRUE(rig.log.Failed()) << call;
        EXPECT_EQ(rig.LastMessage().title, kErrorBoxTitle) << *rig.log.FailedCall();
        rig.log.Clear();
        rig.Page().SetFile(TextureLayer::Primary, {});
        EXPECT_TRUE(Open(choose));
        EXPECT_EQ(rig.Page().File(TextureLayer::Primary), "/t/agate.jpg");
    }
}

}  // namespace
