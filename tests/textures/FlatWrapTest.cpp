#include "PanelRig.h"
#include "TextureWrap.h"

#include <QAbstractSpinBox>
#include <QToolButton>

namespace {

using namespace CorvexMaterial;
using CorvexDB::FlatWrapType;
using namespace CorvexTest;

TEST(FlatWrapOptions, FirstOptionWinsAndNoneMeansSizeToFit)
{
    EXPECT_EQ(FlatWrapOfOptions(true, true), FlatWrapType::TileByUnit);
    EXPECT_EQ(FlatWrapOfOptions(false, true), FlatWrapType::TileToFit);
    EXPECT_EQ(FlatWrapOfOptions(false, false), FlatWrapType::SizeToFit);
}

TEST(FlatWrapOptions, TilesStayInTheirRange)
{
    EXPECT_EQ(TilesFromText("0.1234"), 0.123F);
    EXPECT_EQ(TilesFromText("0"), 0.01F);
    EXPECT_EQ(TilesFromText("-7"), 0.01F);
    EXPECT_EQ(TilesFromText("1e9"), 1000.0F);
    for (const char* text : {"", "two", "1,5", "nan", "1.0x"}) {
        EXPECT_FALSE(TilesFromText(text)) << text;
    }
}

class FlatWrapDialog : public ::testing::Test {
protected:
    /// Lets go of the right button over the flat wrap and answers the dialog.
    void Open(const std::function<void(QDialog&)>& answer)
    {
        DialogAnswer dialog([&](QDialog& shown) {
            answer(shown);
            if (shown.isVisible()) {
                shown.reject();
            }
        });
        QTest::mouseClick(&rig.Find("optWrapType_1"), Qt::RightButton);
        EXPECT_TRUE(dialog.Given());
    }
    static QLineEdit& Tiles(QDialog& dialog)
    {
        return *FindIn<QWidget>(dialog, "txtTilesPerUnit").findChild<QLineEdit*>();
    }
    static void Press(QDialog& dialog, const char* name) { Click(FindIn<QWidget>(dialog, name)); }
    void ExpectStored(FlatWrapType type, float tiles)
    {
        EXPECT_EQ(rig.Page().FlatWrap(), type);
        EXPECT_EQ(rig.Page().TilesPerUnit(), tiles);
    }

    PanelRig rig;
};

TEST_F(FlatWrapDialog, ShowsAndStoresTypeAndTiles)
{
    rig.Page().SetFlatWrap(FlatWrapType::TileToFit);
    rig.Page().SetTilesPerUnit(2.5F);
    Open([&](QDialog& dialog) {
        EXPECT_EQ(Tiles(dialog).text(), "2.50");
        Press(dialog, "optFlatWrapType_2");
        Tiles(dialog).setText("0.125");
        Press(dialog, "cmdOK");
    });
    ExpectStored(FlatWrapType::SizeToFit, 0.125F);
    EXPECT_EQ(rig.Edits(), 1U);

    Open([&](QDialog& dialog) {
        EXPECT_EQ(Tiles(dialog).text(), "0.13");
        Press(dialog, "cmdOK");
    });
    EXPECT_EQ(rig.Page().TilesPerUnit(), 0.125F) << "rounded although nobody touched it";
}

TEST_F(FlatWrapDialog, DefaultIsTileByUnitOnce)
{
    rig.Page().SetFlatWrap(FlatWrapType::SizeToFit);
    rig.Page().SetTilesPerUnit(40.0F);
    Open([&](QDialog& dialog) {
        Press(dialog, "cmdDefault");
        EXPECT_EQ(Tiles(dialog).text(), "1.0");
        Press(dialog, "cmdOK");
    });
    ExpectStored(FlatWrapType::TileByUnit, 1.0F);

    // The arrows end at the edge of the range.
    rig.Page().SetTilesPerUnit(0.05F);
    Open([&](QDialog& dialog) {
        QTest::keyClick(&Tiles(dialog), Qt::Key_Down);
        Press(dialog, "cmdOK");
    });
    EXPECT_EQ(rig.Page().TilesPerUnit(), 0.01F);
}

TEST_F(FlatWrapDialog, KeepsOpenOverTextThatIsNoNumberAndCancelChangesNothingButIsAnEdit)
{
    Open([&](QDialog& dialog) {
        Press(dialog, "optFlatWrapType_2");
        Tiles(dialog).setText("many");
        Press(dialog, "cmdOK");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(FindIn<QWidget>(dialog, "lblMessage").isVisible());
        Tiles(dialog).setText("9");
        Press(dialog, "cmdCancel");
    });
    ExpectStored(FlatWrapType::TileByUnit, 1.0F);
    EXPECT_EQ(rig.Edits(), 1U);
}

TEST_F(FlatWrapDialog, OpensFromNoOtherWrap)
{
    DialogAnswer dialog([](QDialog& shown) { shown.reject(); });
    QTest::mouseClick(&rig.Find("optWrapType_0"), Qt::RightButton);
    QTest::mouseClick(&rig.Find("optWrapType_2"), Qt::RightButton);
    QTest::mouseClick(&rig.Find("optWrapType_1"), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_FALSE(dialog.Given());
}

}  // namespace
