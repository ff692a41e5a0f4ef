#include "ControlRig.h"

#include <QHelpEvent>
#include <QToolTip>

#include <array>

namespace {

using namespace CorvexTest;
using CorvexMaterial::DifferingRow;
using CorvexMaterial::Status;
using enum CorvexMaterial::Attribute;

const std::vector<DifferingRow> kRows{
    {Color, 0, {0x0000FF, 0xFF0000}, 2},
    {Ambient, 0, {60, 10, 20, 30, 40, 50}, 9},
    {DoubleSided, 0, {false, true}, 2},
    {AlphaTest, 0, {0, 4}, 2},
    {WrapType, 0, {0, 2}, 2},
    {OriginU, 0, {0.0F, 0.25F}, 2},
    {Texture, 0, {std::string(), std::string("/tmp/wood & co.png")}, 2},
    {RayTraceReflection, 0, {0.0F, 3.0F}, 2},
    {ApplyRelative, 0, {0, 1}, 2},
    {CustomFields, 1, {std::string("<b>Oak"), std::string("Ash")}, 2},
};

struct Marked {
    const char* control;
    QString told;  ///< empty where no person could read it
};
const std::array kMarked{
    Marked{"cboColor", "Multiple values: #ff0000, Blue"},
    Marked{"picVBColor", "Multiple values: #ff0000, Blue"},
    Marked{"txtAmbient", "Multiple values: 60, 10, 20, 30, 40, 50 and 3 more"},
    Marked{"sldAmbient", "Multiple values: 60, 10, 20, 30, 40, 50 and 3 more"},
    Marked{"chkDoubleSided", "Multiple values: off, on"},
    Marked{"cboAlphaTest", "Multiple values: Never, Greater"},
    Marked{"optWrapType_0", "Multiple values: Spherical Wrap, Cylindrical Wrap"},
    Marked{"cmdTexture", "Multiple values: 0, 0.25"},
    Marked{"imgTexture_0", "Multiple values: none, wood & co.png"},
    Marked{"cmdMaterialExtended", "Multiple values: 0, 3"},
    Marked{"chkApplyRelative", "Multiple values"},
    Marked{"txtCustomMaterialFieldValue_1", "Multiple values: <b>Oak, Ash"}};

class Differences : public WithStartedControl {
protected:
    Differences()
    {
        rig.host.customFields.names = {"Maker", "Wood"};
        rig.Control().UpdateCustomFieldNames();
        rig.log.Clear();
    }

    QImage Picture(const char* control)
    {
        // What has the keyboard shows its own.
        rig.Shown(control).clearFocus();
        return rig.Shown(control).grab().toImage();
    }
    std::vector<QImage> Pictures()
    {
        std::vector<QImage> pictures;
        for (const Marked& marked : kMarked) {
            pictures.push_back(Picture(marked.control));
        }
        return pictures;
    }
    QString Told(const char* control) { return rig.Find<QWidget>(control).accessibleDescription(); }
};

TEST_F(Differences, ArePaintedAndToldAndChangeNothing)
{
    const auto own = Pictures();
    const QString ownColour = Told("picVBColor");
    const auto before = *rig.Control().ShownMaterial();
    ASSERT_EQ(rig.Control().ShowDifferences(kRows), Status::Success);
    const auto marked = Pictures();
    for (std::size_t i = 0; i < kMarked.size(); ++i) {
        EXPECT_NE(own[i], marked[i]) << kMarked[i].control;
        EXPECT_EQ(Told(kMarked[i].control), kMarked[i].told);
    }
    QWidget& field = rig.Shown("txtCustomMaterialFieldValue_1");
    QHelpEvent help(QEvent::ToolTip, {}, field.mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(&field, &help);
    EXPECT_TRUE(QToolTip::text().contains("&lt;b&gt;Oak"));
    EXPECT_EQ(rig.Control().ShownMaterial()->material, before.material);
    EXPECT_EQ(rig.Control().ShownMaterial()->applyMode, before.applyMode);
    EXPECT_EQ(rig.Field("txtAmbient").text(), "60");
    EXPECT_TRUE(rig.edits.empty());
    EXPECT_EQ(rig.Changes(), 0U);

    ASSERT_EQ(rig.Control().CopyFieldToFormMaterial(before.material), Status::Success);
    EXPECT_EQ(Pictures(), own);
    EXPECT_EQ(Told("picVBColor"), ownColour);
}

TEST_F(Differences, LeaveAFieldThatIsEditedAndShowItsTextMeanwhile)
{
    const QImage own = Picture("txtAmbient");
    rig.Control().ShowDifferences(kRows);
    QLineEdit& field = rig.Field("txtAmbient");
    field.setFocus();
    Type(field, "x");
    EXPECT_FALSE(Told("txtAmbient").isEmpty()) << "nothing was given to the shapes";
    Type(field, "60");
    EXPECT_EQ(Picture("txtAmbient"), own);
    EXPECT_EQ(Told("sldAmbient"), QString());
    EXPECT_FALSE(Told("cboColor").isEmpty());
    Choose(rig.List("cboColor"), "Bronze");
    EXPECT_TRUE(Told("cboColor").isEmpty());
    rig.Press("cmdMaterialResetDefaults");
    for (const Marked& marked : kMarked) {
        EXPECT_FALSE(Told(marked.control).startsWith("Multiple")) << marked.control;
    }
}

TEST_F(Differences, EndWithReturnWhichGivesAllWhatTheFieldHolds)
{
    rig.Control().ShowDifferences(kRows);
    for (const char* name : {"txtAmbient", "txtCustomMaterialFieldValue_1"}) {
        auto& field = rig.Field(name);
        QTest::keyClick(&field, Qt::Key_Return);
        ASSERT_EQ(rig.edits.size(), 1U) << name;
        EXPECT_EQ(rig.edits.front().rows.size(), 1U);
        EXPECT_TRUE(Told(name).isEmpty());
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(rig.edits.size(), 1U) << "there is nothing left to give";
        rig.edits.clear();
    }
}

TEST_F(Differences, OfWhatNoControlShowsAreLeftOut)
{
    EXPECT_EQ(rig.Control().ShowDifferences({{PreviewPrimitive, 0, {1, 2}, 2},
                                             {CustomFields, 77, {std::string("a")}, 2},
                                             {Color, 0, {std::string("no color")}, 2},
                                             {AlphaTest, 0, {99}, 5}}),
              Status::Success);
    EXPECT_FALSE(Picture("picVBColor").isNull());
    EXPECT_EQ(Told("cboAlphaTest"), "Multiple values");
}

TEST_F(Differences, OfTheRaytracerAreMarkedInItsDialogUntilTouched)
{
    rig.Control().ShowDifferences({{RayTraceReflection, 0, {0.0F, 3.0F}, 2},
                                   {RaytraceColorPattern1Green, 0, {0.0F, 1.0F}, 2},
                                   {RaytraceColorPattern, 0, {0, 1}, 2}});
    const DialogAnswer answer([](QDialog& dialog) {
        const auto isMarked = [&dialog](const char* name) {
            return FindIn<QWidget>(dialog, name).accessibleDescription().startsWith("Multiple");
        };
        EXPECT_TRUE(isMarked("sldReflection") && isMarked("picColorPattern_1"));
        EXPECT_TRUE(isMarked("cboColorPattern") && !isMarked("picColorPattern_0"));
        auto& reflection = FindIn<QLineEdit>(dialog, "txtReflection");
        Type(reflection, "25");
        EXPECT_EQ(reflection.text(), "25");
        QTest::keyClick(&reflection, Qt::Key_Down);
        EXPECT_EQ(FindIn<QSlider>(dialog, "sldReflection").value(), 9);
        EXPECT_EQ(reflection.text(), "9");
        auto& list = FindIn<QComboBox>(dialog, "cboColorPattern");
        Choose(list, list.currentText());
        EXPECT_FALSE(isMarked("sldReflection") || isMarked("cboColorPattern"));
        Click(FindIn<QWidget>(dialog, "cmdOK"));
    });
    rig.Press("cmdMaterialExtended");
    ASSERT_EQ(rig.edits.size(), 1U);
    EXPECT_EQ(rig.edits.front().rows.size(), 2U);
    EXPECT_EQ(Told("cmdMaterialExtended"), "Multiple values: 0, 1");
}

}  // namespace
