#include "ControlRig.h"
#include "modDialog.h"

namespace {

using namespace CorvexTest;

class Warning : public ::testing::Test {
protected:
    /// Shows the warning; whether the dialog came up.
    bool ShowAnd(std::function<void(QDialog&)> answer)
    {
        const DialogAnswer given(std::move(answer));
        dialogs.ShowWarning({"Corvex", "Mind the <b>step</b>", "Step"});
        return given.Given();
    }

    CallLog log;
    RecordingPlatform platform{log};
    RecordingHost host{log};
    CorvexMaterial::modDialog dialogs{platform.settings, platform.prompts, host.diagnostics,
                                      nullptr};
};

void PressOk(QDialog& dialog)
{
    Click(*dialog.findChild<QWidget*>("cmdOK"));
}

void Untick(QDialog& dialog)
{
    Click(*dialog.findChild<QWidget*>("chkContinueToReceiveWarning"));
}

TEST_F(Warning, IsShownUntilTheUserSwitchesItOff)
{
    EXPECT_TRUE(ShowAnd([](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "frmDialog");
        EXPECT_EQ(dialog.windowTitle(), "Corvex");
        EXPECT_EQ(dialog.findChild<QLabel*>("lblWarning")->text(), "Mind the <b>step</b>");
        auto* choice = dialog.findChild<QCheckBox*>("chkContinueToReceiveWarning");
        EXPECT_EQ(choice->text().remove(u'&'), "Continue to receive this message");
        EXPECT_TRUE(choice->isChecked());
        PressOk(dialog);
    }));
    EXPECT_EQ(platform.settings.GetTip("Step"), "1");
    EXPECT_TRUE(ShowAnd([](QDialog& dialog) {
        Untick(dialog);
        PressOk(dialog);
    }));
    EXPECT_EQ(platform.settings.GetTip("Step"), "0");
    EXPECT_FALSE(ShowAnd(PressOk));
    EXPECT_EQ(log.DetailsOf("Diagnostics.DebugTrace"),
              (Texts{"Loading Dialog Form", "Unloading Dialog Form", "Loading Dialog Form",
                     "Unloading Dialog Form"}));
}

TEST_F(Warning, KeepsTheChoiceOnceHoweverTheDialogIsClosed)
{
    const std::function<void(QDialog&)> ways[] = {
        [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { dialog.close(); },
    };
    for (const auto& way : ways) {
        platform.settings.PutTip("Step", "1");
        log.Clear();
        EXPECT_TRUE(ShowAnd([&](QDialog& dialog) {
            Untick(dialog);
            way(dialog);
        }));
        EXPECT_EQ(log.DetailsOf("Store.Write"), (Texts{"Tips/Step=0"}));
    }
}

TEST(TabWarnings, GoOutAsEventsEachTimeATabIsEntered)
{
    ControlRig rig;
    rig.host.graphics.capable = false;
    rig.host.applicationState.applicationName = "Painter";
    rig.Start();
    auto& tabs = rig.Find<QTabBar>("tabChannels");
    constexpr int kAlphaMap = 3;
    for (const int tab : {kAlphaMap, 0, kAlphaMap, 4, 5, 6}) {
        tabs.setCurrentIndex(tab);
    }
    std::vector<QString> keys;
    for (const RequestedWarning& warning : rig.warnings) {
        EXPECT_EQ(warning.application, "Painter");
        EXPECT_FALSE(warning.text.isEmpty());
        keys.push_back(warning.key);
    }
    EXPECT_EQ(keys,
              (std::vector<QString>{"RaytraceTranslucency", "RaytraceTranslucency", "Bumpmapping",
                                    "SpecularEnvironmentMapping", "SpecularEnvironmentMapping"}));
    EXPECT_EQ(rig.Changes(), 0U);
}

}  // namespace
