#include "PluginRig.h"

#include "PluginParameters.h"
#include <CorvexMaterial/UpDownText.h>

namespace CorvexTest {
namespace {

using CorvexMaterial::UpDownText;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class PluginPanel : public testing::Test {
protected:
    PluginRig rig;
};

TEST_F(PluginPanel, ShowsOneEditorOfItsKindPerParameter)
{
    rig.Pick("First");
    EXPECT_EQ(rig.chosen, 1);
    EXPECT_EQ(rig.edits, 0);
    EXPECT_THAT(rig.VisibleRows(),
                UnorderedElementsAre(
                    "lblParameter_0", "cboParameter_0", "chkParameter_1", "lblParameter_2",
                    "sldParameter_2", "txtParameterPosition_2", "lblParameter_3", "txtParameter_3",
                    "lblParameter_4", "cboParameter_4", "lblParameter_5", "cboParameter_5",
                    "lblParameter_6", "picParameter_6", "cmdRemember", "cmdReset", "cmdResetUser"));
    EXPECT_THAT(rig.Read(), ElementsAre(1, 1, 7, 2.5F, 2, 1, 8388607, 0, 0, 0));
    EXPECT_EQ(rig.Find<QComboBox>("cboParameter_5").count(), 2);
    EXPECT_EQ(rig.Find<QCheckBox>("chkParameter_1").text(), "Worn");

    rig.Pick("None");
    EXPECT_THAT(rig.VisibleRows(), IsEmpty());
    EXPECT_EQ(rig.Read(), std::vector<float>(10, 0.0F));
    EXPECT_EQ(rig.panel.SelectedName(), "");
}

TEST_F(PluginPanel, EachUserEditIsSignalledOnceAndRead)
{
    rig.Pick("First");
    Choose(rig.Find<QComboBox>("cboParameter_0"), "Stack");
    EXPECT_EQ(rig.edits, 1);
    Click(rig.Find<QCheckBox>("chkParameter_1"));
    EXPECT_EQ(rig.edits, 2);
    auto& slider = rig.Find<QSlider>("sldParameter_2");
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(rig.edits, 3);
    QTest::keyClick(&slider, Qt::Key_PageUp);
    EXPECT_EQ(rig.edits, 4);
    rig.platform.choosers.colours = {CorvexMaterial::MakeColour({0, 16, 32})};
    Click(rig.Find<QWidget>("picParameter_6"));
    EXPECT_EQ(rig.edits, 5);
    EXPECT_THAT(rig.Read(), ElementsAre(0, 0, 13, 2.5F, 2, 1, 16 * 256 + 32, 0, 0, 0));
    Click(rig.Find<QWidget>("picParameter_6"));
    EXPECT_EQ(rig.edits, 5) << "a cancelled colour dialog changes nothing";
}

TEST_F(PluginPanel, OffersNoColourToTheDialogWhenTheSwatchIsBlack)
{
    rig.Pick("First");
    rig.panel.Display({0, 0, 0, 0, 0, 0, 0});
    Click(rig.Find<QWidget>("picParameter_6"));
    rig.panel.Display({0, 0, 0, 0, 0, 0, 255});
    Click(rig.Find<QWidget>("picParameter_6"));
    const auto details = rig.log.DetailsOf("Choosers.ChooseColour");
    ASSERT_EQ(details.size(), 2U);
    EXPECT_NE(details[0], details[1]);
    EXPECT_THAT(details[1], testing::HasSubstr(std::to_string(255 * 65536)));
}

TEST_F(PluginPanel, AConfirmedNumberGoesThroughTheHost)
{
    rig.Pick("First");
    auto& box = rig.Find<UpDownText>("txtParameter_3");
    auto& text = *box.findChild<QLineEdit*>();
    Type(text, "4.75");
    EXPECT_EQ(rig.edits, 4) << "digits are shown as they are typed";
    EXPECT_EQ(rig.Read()[3], 4.75F);
    EXPECT_EQ(rig.log.CountOf("NumericValidation.Accept"), 0U);
    QTest::keyClick(&text, Qt::Key_Enter);
    EXPECT_THAT(rig.log.DetailsOf("NumericValidation.Accept"), ElementsAre("4.75"));
    QTest::keyClick(&text, Qt::Key_Enter);
    EXPECT_EQ(rig.edits, 5) << "the same text again is no edit";

    Type(text, "50");
    EXPECT_EQ(rig.edits, 6) << "beyond the range only what the host makes of it";
    Type(text, "9,5/2");
    EXPECT_EQ(rig.edits, 7);
    QTest::keyClick(&text, Qt::Key_Enter);
    EXPECT_EQ(rig.Read()[3], 4.75F);
    EXPECT_EQ(rig.edits, 8);

    box.stepBy(1);
    EXPECT_EQ(rig.Read()[3], 5.25F);
    box.stepBy(100);
    EXPECT_EQ(rig.Read()[3], 10.0F) << "steps stop at the maximum";
    Type(text, "");
    QTest::keyClick(&text, Qt::Key_Enter);
    EXPECT_EQ(box.text(), "1.25") << "an emptied box falls back to its own default";
    EXPECT_EQ(rig.edits, 11);
}

TEST_F(PluginPanel, AMarkedTextEndsReadingAtItsParameter)
{
    rig.Pick("First");
    auto& box = rig.Find<UpDownText>("txtParameter_3");
    Type(*box.findChild<QLineEdit*>(), "wide");
    EXPECT_TRUE(box.property("invalid").toBool());
    std::vector<float> values(3, 9.0F);
    try {
        rig.panel.ReadValues(values);
        ADD_FAILURE() << "there is no such number";
    } catch (const CorvexMaterial::Error& error) {
        EXPECT_EQ(error.Code(), CorvexMaterial::Status::ConversionFailed);
        EXPECT_THAT(error.what(), testing::HasSubstr("Width"));
    }
    EXPECT_THAT(values, ElementsAre(1, 1, 7, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(rig.panel.ParameterTexts()[3], "wide") << "saving never fails";
    EXPECT_TRUE(box.accessibleDescription().contains("wide"));
    Type(*box.findChild<QLineEdit*>(), "3");
    EXPECT_FALSE(box.property("invalid").toBool());
    EXPECT_EQ(rig.Read()[3], 3.0F);
}

TEST_F(PluginPanel, ProgramChangesAreSilentAndRoundTrip)
{
    rig.panel.SelectName("First");
    rig.panel.Display({0, 0, 19.5F, 0.1F, 1, 0, 255, 77, 77, 77});
    EXPECT_THAT(rig.Read(), ElementsAre(0, 0, 20, 0.1F, 1, 0, 255, 0, 0, 0));
    EXPECT_THAT(rig.panel.ParameterTexts(), ElementsAre("0", "0", "20", "0.1", "1", "0", "255"));
    rig.panel.ShowTexts({"1", "nonsense", "4"});
    EXPECT_THAT(rig.panel.ParameterTexts(), ElementsAre("1", "1", "4", "2.5", "2", "1", "8388607"));
    for (const char* none : {"None", ""}) {
        rig.panel.SelectName("First");
        rig.panel.SelectName(none);
        EXPECT_EQ(rig.panel.SelectedName(), "");
    }
    rig.panel.Restore("First", {0, 1, NAN});
    EXPECT_EQ(rig.Read()[2], 7.0F) << "what a file lacks is the default";
    rig.panel.Clear();
    EXPECT_EQ(rig.Find<QComboBox>("cboPlugin").count(), 1);
    EXPECT_EQ(rig.edits + rig.chosen, 0);
}

}  // namespace
}  // namespace CorvexTest
