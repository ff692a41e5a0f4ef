#include "CroppingPicture.h"
#include "PanelRig.h"
#include "SampleFolder.h"
#include "frmOptionsTexture.h"

namespace {

using namespace CorvexMaterial;
using CorvexDB::TexturePlacement;
using namespace CorvexTest;

class CropDialog : public ::testing::Test {
protected:
    CropDialog()
    {
        dialog.ShowTexts({"0.25", "0.25", "0.5", "0.5"});
        dialog.SetupForm("");
        dialog.show();
    }

    QLineEdit& Field(const char* name) { return FindIn<QLineEdit>(dialog, name); }
    std::string TextOf(const char* name) { return Field(name).text().toStdString(); }
    CropTexts Texts()
    {
        return {TextOf("txtOriginLeft"), TextOf("txtOriginTop"), TextOf("txtScaleWidth"),
                TextOf("txtScaleHeight")};
    }
    CroppingPicture& Picture() { return *dialog.findChild<CroppingPicture*>(); }
    void Drag(Qt::KeyboardModifiers modifiers, QPoint from, QPoint to)
    {
        QTest::mousePress(&Picture(), Qt::LeftButton, modifiers, from);
        QTest::mouseMove(&Picture(), to);
        QTest::mouseRelease(&Picture(), Qt::LeftButton, modifiers, to);
    }
    void Press(const char* name) { Click(FindIn<QWidget>(dialog, name)); }

    frmOptionsTexture dialog{nullptr};
};

TEST_F(CropDialog, DragDrawsANewRectangle)
{
    Drag({}, {129, 65}, {257, 385});
    EXPECT_EQ(Texts(), (CropTexts{"0.25", "0.125", "0.25", "0.625"}));
    // The drag is over: moving on changes nothing.
    QTest::mouseMove(&Picture(), {400, 400});
    EXPECT_EQ(Texts().scaleWidth, "0.25");
    QTest::mouseClick(&Picture(), Qt::RightButton, {}, {300, 300});
    EXPECT_EQ(Texts().originLeft, "0.25");
}

TEST_F(CropDialog, ShiftAndArrowKeysMoveAndResizeTheRectangle)
{
    Drag(Qt::ShiftModifier, {257, 257}, {257 + 64, 257});
    EXPECT_EQ(Texts(), (CropTexts{"0.375", "0.25", "0.5", "0.5"}));
    Drag(Qt::ShiftModifier, {449, 385}, {449 - 128, 385 + 64});
    EXPECT_EQ(Texts(), (CropTexts{"0.375", "0.25", "0.25", "0.625"}));

    dialog.ShowTexts({"0.25", "0.25", "0.5", "0.5"});
    Picture().setFocus();
    QTest::keyClick(&Picture(), Qt::Key_Right);
    EXPECT_GT(Texts().originLeft, "0.25");
    EXPECT_EQ(Texts().scaleWidth, "0.5");
    QTest::keyClick(&Picture(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Texts().originTop, "0.25");
    EXPECT_GT(Texts().scaleHeight, "0.5");
}

TEST_F(CropDialog, TypedNumbersAreClampedAsTheyCome)
{
    Type(Field("txtOriginLeft"), "0.75");
    EXPECT_EQ(Texts(), (CropTexts{"0.75", "0.25", "0.25", "0.5"}));
    Type(Field("txtScaleHeight"), "4");
    EXPECT_EQ(Texts().scaleHeight, "0.75");
    Type(Field("txtScaleWidth"), "-0.5");
    EXPECT_EQ(Texts().scaleWidth, "-0.5");
}

TEST_F(CropDialog, ResetTakesTheWholeImage)
{
    Press("cmdResetDefaults");
    EXPECT_EQ(Texts(), (CropTexts{"0.0", "0.0", "1.0", "1.0"}));
    Press("cmdOK");
    EXPECT_TRUE(dialog.OKClicked());
    EXPECT_EQ(dialog.GetResults(), TexturePlacement{});
}

TEST_F(CropDialog, KeepsOpenOverTextThatIsNoNumber)
{
    Type(Field("txtScaleWidth"), "0,5,");
    Press("cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.OKClicked());
    EXPECT_TRUE(FindIn<QLabel>(dialog, "lblMessage").isVisible());
    Type(Field("txtScaleWidth"), "0,25+25%");
    EXPECT_FALSE(FindIn<QLabel>(dialog, "lblMessage").isVisible());
    Press("cmdOK");
    EXPECT_TRUE(dialog.OKClicked());
    EXPECT_EQ(dialog.GetResults().scaleU, 0.5F);
}

TEST_F(CropDialog, SaysWhenProportionsAreLost)
{
    const SampleFolder folder;
    const QString file = folder.Save("tall.png", Qt::red, {1, 600});
    EXPECT_FALSE(FindIn<QLabel>(dialog, "lblTooTall").isVisible());
    dialog.SetupForm(file.toStdString());
    EXPECT_TRUE(FindIn<QLabel>(dialog, "lblTooTall").isVisible());
    EXPECT_EQ(Picture().size(), QSize(514, 514));
}

TEST(CropCommand, StoresOnlyWhatWasAccepted)
{
    PanelRig rig;
    const TexturePlacement before{0.25F, 0.0F, 0.5F, 1.0F};
    rig.Page().SetPlacement(before);
    const auto open = [&](const char* width, const char* button) {
        const DialogAnswer answer([&](QDialog& dialog) {
            EXPECT_EQ(FindIn<QLineEdit>(dialog, "txtOriginLeft").text(), "0.25");
            Type(FindIn<QLineEdit>(dialog, "txtScaleWidth"), width);
            Click(FindIn<QWidget>(dialog, button));
        });
        rig.Press("cmdTexture");
    };
    open("0.125", "cmdCancel");
    EXPECT_EQ(rig.Page().Placement(), before);
    EXPECT_EQ(rig.Edits(), 0U);
    open("0.125", "cmdOK");
    EXPECT_EQ(rig.Page().Placement(), (TexturePlacement{0.25F, 0.0F, 0.125F, 1.0F}));
    EXPECT_EQ(rig.Edits(), 1U);
}

}  // namespace
