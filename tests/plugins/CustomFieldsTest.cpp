#include "CustomFieldsPanel.h"

#include "Driving.h"

#include <QClipboard>
#include <QTextDocument>

namespace CorvexTest {
namespace {

using CorvexMaterial::CustomFieldsPanel;

class CustomFields : public testing::Test {
protected:
    CustomFields()
    {
        panel.show();
        QObject::connect(&panel, &CustomFieldsPanel::Edited, &panel, [this] { ++edits; });
    }
    QLineEdit& Value(int row)
    {
        return FindIn<QLineEdit>(panel, QStringLiteral("txtCustomMaterialFieldValue_%1").arg(row));
    }
    QLabel& Name(int row)
    {
        return FindIn<QLabel>(panel, QStringLiteral("lblCustomMaterialFieldName_%1").arg(row));
    }

    CustomFieldsPanel panel{nullptr};
    int edits = 0;
};

TEST_F(CustomFields, ShowsTheDefinedSlotsAndIgnoresNamesBeyondSix)
{
    panel.ShowNames({"Supplier", "", "R&D", "", "", "Notes", "Seventh"});
    for (int row = 0; row < 6; ++row) {
        const bool isDefined = row == 0 || row == 2 || row == 5;
        EXPECT_EQ(Value(row).isVisible(), isDefined) << row;
        EXPECT_EQ(Name(row).isVisible(), isDefined) << row;
    }
    EXPECT_EQ(Name(2).text(), "R&D") << "no mnemonic";
}

TEST_F(CustomFields, ALongNameOrValueTakesNoRoomAndLosesNothing)
{
    const std::string name = "<b>Supplier</b> " + std::string(400, 'n');
    const std::string value(40'000, 'v');
    panel.resize(240, 200);
    panel.ShowNames({"Price", name});
    panel.ShowTexts({"", value});
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.width(), 240);
    EXPECT_GE(Value(0).width(), 120);
    EXPECT_GE(Value(1).width(), 120);
    QTextDocument tip;
    tip.setHtml(Name(1).toolTip());
    EXPECT_EQ(tip.toPlainText().toStdString(), name);
    EXPECT_EQ(panel.Texts()[1], value);
}

TEST_F(CustomFields, WithoutNamesOneLineSaysSo)
{
    panel.ShowNames({"Supplier"});
    panel.ShowNames({"", ""});
    EXPECT_EQ(Name(0).text(), "No custom material fields defined.");
    EXPECT_TRUE(Name(0).isVisible());
    for (int row = 0; row < 6; ++row) {
        EXPECT_FALSE(Value(row).isVisible());
        EXPECT_EQ(Name(row).isVisible(), row == 0);
    }
}

TEST_F(CustomFields, ABarIsDroppedWhenTypedAndStaysWhenPasted)
{
    panel.ShowNames({"Supplier"});
    Type(Value(0), "a|b");
    EXPECT_EQ(panel.Texts()[0], "ab");
    EXPECT_EQ(edits, 2) << "the bar is no edit";
    QApplication::clipboard()->setText("c|d");
    Value(0).selectAll();
    QTest::keyClick(&Value(0), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(panel.Texts()[0], "c|d");
    EXPECT_EQ(edits, 3);
}

TEST_F(CustomFields, ValuesOutliveTheNamesAndProgramChangesAreSilent)
{
    panel.ShowTexts({"one", "two", "", "", "", "six"});
    panel.ShowNames({"Supplier"});
    panel.ShowNames({});
    panel.ShowNames({"Supplier", "Price"});
    EXPECT_EQ(panel.Texts()[1], "two");
    EXPECT_EQ(panel.Texts()[5], "six");
    EXPECT_EQ(edits, 0);
}

}  // namespace
}  // namespace CorvexTest
