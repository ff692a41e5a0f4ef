#include "FaultSteps.h"

#include <QWheelEvent>

namespace {

using namespace CorvexTest;
using CorvexDB::udtMaterial;
using CorvexMaterial::Status;

/// The steps of a refresh among everything that the log holds.
std::vector<std::string> RefreshSteps(const ControlRig& rig)
{
    return rig.log.Order({"Shape.ApplyMaterial", "Shape.ApplyMaterialWrapped", "Viewport.Draw",
                          "Event.MaterialChanged"});
}

struct EditCase {
    std::string name;
    std::function<void(ControlRig&)> edit;
    std::function<void(udtMaterial&)> expected;  ///< turns the factory material into the result
};

EditCase Amount(const char* field, auto udtMaterial::*member)
{
    return {field, [field](ControlRig& rig) { Type(rig.Field(field), "7"); },
            [member](udtMaterial& material) { material.*member = 7; }};
}

EditCase Slid(const char* slider, std::int32_t udtMaterial::*member)
{
    return {slider, [slider](ControlRig& rig) { rig.Find<QSlider>(slider).setValue(7); },
            [member](udtMaterial& material) { material.*member = 7; }};
}

EditCase Flag(const char* box, bool udtMaterial::*member)
{
    return {box, [box](ControlRig& rig) { rig.Press(box); },
            [member](udtMaterial& material) { material.*member = true; }};
}

EditCase Picked(const char* button)
{
    return {button,
            [button](ControlRig& rig) {
                rig.platform.choosers.colours = {0x00FF80};
                rig.Press(button);
            },
            [](udtMaterial& material) { material.Color = 0x00FF80; }};
}

const EditCase kEdits[] = {
    Amount("txtEmissive", &udtMaterial::Emissive),
    Amount("txtSpecular", &udtMaterial::Specular),
    Amount("txtAmbient", &udtMaterial::Ambient),
    Amount("txtTransparency", &udtMaterial::Transparency),
    Slid("sldEmissive", &udtMaterial::Emissive),
    Slid("sldSpecular", &udtMaterial::Specular),
    Slid("sldAmbient", &udtMaterial::Ambient),
    Slid("sldTransparency", &udtMaterial::Transparency),
    Amount("txtTexture2Translucency", &udtMaterial::OverlayTranslucency),
    Flag("chkFlipU", &udtMaterial::WrapOrientationU),
    Flag("chkFlipV", &udtMaterial::WrapOrientationV),
    Flag("chkDoubleSided", &udtMaterial::DoubleSided),
    Flag("chkAlphaIsTransparent", &udtMaterial::AlphaIsTransparent),
    {"chkApplyRelative", [](ControlRig& rig) { rig.Press("chkApplyRelative"); },
     [](udtMaterial&) {}},
    {"cboAlphaTest", [](ControlRig& rig) { Choose(rig.List("cboAlphaTest"), "Less/Equal"); },
     [](udtMaterial& material) { material.AlphaTest = 3; }},
    {"cboTextureAlphaChannelUse",
     [](ControlRig& rig) {
         auto& list = rig.List("cboTextureAlphaChannelUse");
         Choose(list, list.itemText(2));
     },
     [](udtMaterial& material) { material.TextureAlphaChannelUse = 2; }},
    {"cboColor", [](ControlRig& rig) { Choose(rig.List("cboColor"), "Alice Blue"); },
     [](udtMaterial& material) { material.Color = 16775408; }},
    {"cboColorCustom",
     [](ControlRig& rig) {
         rig.platform.choosers.colours = {0x00FF80};
         Choose(rig.List("cboColor"), "Custom");
     },
     [](udtMaterial& material) { material.Color = 0x00FF80; }},
    Picked("cmdSelectColor"),
    Picked("picVBColor"),
};

class Edit : public ::testing::TestWithParam<EditCase> {};

TEST_P(Edit, AppliesDrawsAndTellsTheHostOnceInThisOrder)
{
    ControlRig rig;
    rig.Start();
    GetParam().edit(rig);

    udtMaterial expected;
    GetParam().expected(expected);
    EXPECT_EQ(rig.Previewed(), expected);
    EXPECT_EQ(RefreshSteps(rig),
              (Texts{"Shape.ApplyMaterialWrapped", "Viewport.Draw", "Event.MaterialChanged"}));
    EXPECT_EQ(rig.log.CountOf("Store.Write"), 0U);
}

INSTANTIATE_TEST_SUITE_P(Control, Edit, ::testing::ValuesIn(kEdits),
                         [](const auto& row) { return row.param.name; });

using Editing = WithStartedControl;

TEST_F(Editing, EveryKeyOfATextIsAnEditThatTheSliderFollows)
{
    Type(rig.Field("txtAmbient"), "125");
    EXPECT_EQ(rig.Changes(), 3U);
    EXPECT_EQ(rig.Previewed().Ambient, 125);
    EXPECT_EQ(rig.Find<QSlider>("sldAmbient").value(), 100);
}

TEST_F(Editing, AnAmountThatIsNoNumberLeavesTheLastOneInForceAndInTheField)
{
    auto& field = rig.Field("txtAmbient");
    // Key by key: what begins as a number is the last one.
    for (const auto& [text, last] : {std::pair("abc", 33),
                                     {"", 33},
                                     {"-", 33},
                                     {"1,5x", 1},
                                     {"0x10", 0},
                                     {"99999999999", 999'999'999}}) {
        Type(field, "33");
        EXPECT_FALSE(field.property("invalid").toBool());
        Type(field, text);
        EXPECT_EQ(field.text(), text) << "not while it is typed";
        EXPECT_TRUE(field.property("invalid").toBool()) << text;
        EXPECT_EQ(rig.Previewed().Ambient, last) << text;
        QFocusEvent leaving(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(&field, &leaving);
        EXPECT_EQ(field.text(), QString::number(last));
        EXPECT_EQ(rig.Previewed().Ambient, last);
    }
    Type(rig.Field("txtTexture2Translucency"), "4x");
    EXPECT_EQ(rig.Previewed().OverlayTranslucency, 4.0F);
    rig.Find<QTabBar>("tabChannels").setCurrentIndex(0);
    Type(field, "-5");
    EXPECT_EQ(rig.Previewed().Ambient, -5);
    Type(field, "2.5");
    EXPECT_EQ(rig.Previewed().Ambient, 2);
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
}

TEST_F(Editing, WhatIsComputedCountsOnReturnAndOnLeavingAndThenStandsInTheField)
{
    auto& field = rig.Field("txtAmbient");
    Type(field, "2*15");
    EXPECT_EQ(rig.Previewed().Ambient, 2);
    EXPECT_FALSE(field.property("invalid").toBool());
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(rig.Previewed().Ambient, 30);
    EXPECT_EQ(field.text(), "30");
    Type(field, "50 %");
    QFocusEvent leaving(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&field, &leaving);
    EXPECT_EQ(rig.Previewed().Ambient, 50);
    Type(field, "1.234,5");
    EXPECT_TRUE(field.accessibleDescription().contains("decimal sign"));
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(field.text(), "1.234,5") << "there to be mended";
    EXPECT_EQ(rig.Previewed().Ambient, 1);
    Type(field, "97");
    EXPECT_TRUE(field.accessibleDescription().isEmpty());

    QTest::keyClick(&field, Qt::Key_Up);
    QTest::keyClick(&field, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(field.text(), "99");
    QTest::keyClick(&field, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(rig.Previewed().Ambient, 100) << "steps stay in the range";
    Type(field, "140");
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), "140") << "or where they were";
    QTest::keyClick(&field, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(rig.Previewed().Ambient, 130);
}

TEST_F(Editing, ANumberIsDraggedOnItsLabelAsOneGestureThatEscTakesBack)
{
    auto& label = rig.Shown("lblAmbient");
    const auto drag = [&label](std::initializer_list<int> places, Qt::KeyboardModifiers modifiers) {
        QTest::mousePress(&label, Qt::LeftButton, {}, {5, 5});
        for (const int place : places) {
            const QPointF at(place, 5);
            QMouseEvent move(QEvent::MouseMove, at, label.mapToGlobal(at), Qt::NoButton,
                             Qt::LeftButton, modifiers);
            QCoreApplication::sendEvent(&label, &move);
        }
    };
    const auto release = [&label] { QTest::mouseRelease(&label, Qt::LeftButton, {}, {5, 5}); };
    drag({30, 40, 50}, {});
    EXPECT_EQ(rig.Previewed().Ambient, 70);
    release();
    drag({30, 230}, Qt::ShiftModifier);
    EXPECT_EQ(rig.Previewed().Ambient, 80);
    release();
    drag({30, 36, 600}, Qt::ControlModifier);
    EXPECT_EQ(rig.Previewed().Ambient, 100);
    QTest::keyClick(&label, Qt::Key_Escape);
    EXPECT_EQ(rig.Previewed().Ambient, 80);
    drag({400}, {});  // the hand that was not lifted yet
    release();
    std::set<std::uint32_t> gestures;
    for (const auto& edit : rig.edits) {
        gestures.insert(edit.gesture);
    }
    EXPECT_EQ(gestures.size(), 3U);
    EXPECT_FALSE(gestures.contains(0));
    QTest::mouseClick(&label, Qt::LeftButton);
    EXPECT_EQ(rig.Field("txtAmbient").selectedText(), "80");
}

TEST_F(Editing, TheWheelPassesByWhatHasNotTheFocus)
{
    auto& list = rig.List("cboColor");
    auto& slider = rig.Find<QSlider>("sldAmbient");
    for (QWidget* widget : std::initializer_list<QWidget*>{&list, &slider}) {
        widget->clearFocus();
        QWheelEvent wheel({5, 5}, widget->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget, &wheel);
    }
    EXPECT_EQ(list.currentText(), "White");
    EXPECT_EQ(slider.value(), 60);
}

TEST_F(Editing, AlphaTestReferenceIsOpenOnlyUnderATestAndKeepsItsText)
{
    auto& reference = rig.Field("txtAlphaTestReference");
    EXPECT_THROW(Type(reference, "9"), std::logic_error);
    Choose(rig.List("cboAlphaTest"), "Always");
    Type(reference, "9");
    Choose(rig.List("cboAlphaTest"), "Never");
    EXPECT_FALSE(reference.isEnabled());
    EXPECT_EQ(reference.text(), "9");
    Choose(rig.List("cboAlphaTest"), "Less");
    EXPECT_TRUE(reference.isEnabled());
    EXPECT_EQ(reference.text(), "9");
    EXPECT_EQ(rig.Previewed().AlphaTestReference, 9);
}

TEST_F(Editing, CancelledColourDialogAndTheSameUseOfAlphaAgainChangeNothing)
{
    rig.Control().put_lVBColor(16775408);
    rig.log.Clear();
    Choose(rig.List("cboColor"), "Custom");
    EXPECT_EQ(rig.List("cboColor").currentText(), "Alice Blue");
    rig.Press("cmdSelectColor");
    rig.Press("picVBColor");
    EXPECT_EQ(rig.log.DetailsOf("Choosers.ChooseColour"), Texts(3, "16775408"));
    auto& use = rig.List("cboTextureAlphaChannelUse");
    Choose(use, use.currentText());
    EXPECT_TRUE(RefreshSteps(rig).empty());
}

TEST_F(Editing, SectionResetsTouchTheirSectionOnlyAndRefreshOnce)
{
    for (const char* field : {"txtEmissive", "txtSpecular", "txtAmbient", "txtTransparency"}) {
        Type(rig.Field(field), "7");
    }
    rig.Control().put_lVBColor(255);
    rig.Press("chkDoubleSided");
    rig.Press("chkAlphaIsTransparent");
    rig.Press("chkFlipU");
    Choose(rig.List("cboAlphaTest"), "Equal");
    Choose(rig.List("cboTextureAlphaChannelUse"), "Ignore");
    rig.log.Clear();

    rig.Press("cmdMiscellaneousResetToDefaults");
    udtMaterial expected;
    expected.DoubleSided = true;
    expected.AlphaIsTransparent = true;
    expected.WrapOrientationU = true;
    expected.AlphaTest = 2;
    expected.TextureAlphaChannelUse = 1;
    EXPECT_EQ(rig.Previewed(), expected);
    EXPECT_EQ(RefreshSteps(rig).size(), 3U);

    rig.log.Clear();
    rig.Press("cmdAdvancedOptionsResetDefaults");
    expected = {};
    expected.WrapOrientationU = true;
    EXPECT_EQ(rig.Previewed(), expected);
    EXPECT_EQ(RefreshSteps(rig).size(), 3U);
    EXPECT_EQ(rig.log.CountOf("Store.Write"), 0U);
}

TEST_F(Editing, ResetMiscellaneousIsTheButtonAndDefaultMaterialTheWholeMaterial)
{
    Type(rig.Field("txtSpecular"), "7");
    rig.Press("chkFlipU");
    rig.log.Clear();
    EXPECT_EQ(rig.Control().ResetMiscellaneous(), Status::Success);
    EXPECT_EQ(rig.Field("txtSpecular").text(), "0");
    EXPECT_TRUE(rig.Tick("chkFlipU").isChecked());
    EXPECT_EQ(rig.Changes(), 1U);

    rig.Control().put_TextureFileName("/a.png");
    rig.Control().put_lPreviewPrimitive(4);
    rig.log.Clear();
    EXPECT_EQ(rig.Control().DefaultMaterial(), Status::Success);
    EXPECT_EQ(rig.Previewed(), udtMaterial());
    EXPECT_EQ(rig.ShownMesh(), "previewsphere.x");
    EXPECT_EQ(rig.Changes(), 1U);
}

TEST_F(Editing, PluginButtonsKeepAndBringBackItsValuesWithOneRefreshEach)
{
    OfferPluginAndField(rig);
    rig.Find<QSlider>("sldParameter_0").setValue(7);
    const std::vector<float> fresh(5, 1.0F);
    std::vector<float> edited = fresh;
    edited[0] = 7.0F;
    EXPECT_EQ(rig.Previewed().PluginParameters, edited);
    struct Row {
        const char* button;
        const std::vector<float>& values;
        std::size_t writes;
    };
    const Row rows[] = {
        {"cmdRemember", edited, 6}, {"cmdReset", fresh, 0}, {"cmdResetUser", edited, 0}};
    for (const Row& row : rows) {
        rig.log.Clear();
        rig.Press(row.button);
        EXPECT_EQ(rig.Previewed().PluginParameters, row.values) << row.button;
        EXPECT_EQ(rig.log.CountOf("Store.Write"), row.writes) << row.button;
        EXPECT_EQ(RefreshSteps(rig).size(), 3U) << row.button;
    }
    for (int clearing = 0; clearing < 2; ++clearing) {
        EXPECT_EQ(rig.Control().ClearPluginList(), Status::Success);
        EXPECT_EQ(rig.Changes(), 2U) << "a plug-in that was chosen leaves the material once";
    }
    EXPECT_EQ(rig.Previewed().Plugin, "");
}

TEST_F(Editing, AMissingPluginIsSaidAndItsMaterialStaysAsItWas)
{
    OfferPluginAndField(rig);
    auto& list = rig.List("cboPlugin");
    auto& note = rig.Find<QWidget>("lblPluginMissing");
    udtMaterial material;
    material.Plugin = "Basalt";
    material.PluginParameters = {1.5F, -2.0F};
    EXPECT_EQ(rig.Control().CopyFieldToFormMaterial(material), Status::Success);
    EXPECT_EQ(rig.Previewed(), material);
    EXPECT_TRUE(note.isVisible());
    EXPECT_EQ(list.placeholderText(), "Basalt");
    EXPECT_TRUE(rig.statusTexts.back().contains("Basalt"));

    rig.Press("cmdMaterialRemember");
    rig.Press("cmdMaterialResetDefaults");
    EXPECT_EQ(rig.Previewed(), udtMaterial());
    EXPECT_EQ(list.currentText(), "None");
    rig.Press("cmdMaterialResetUserDefaults");
    EXPECT_EQ(rig.Previewed(), material);
    rig.Control().put_bMaterialLibraryPanel(true);
    rig.Press("cmdMaterialLibraryAdd");
    EXPECT_EQ(rig.host.materialLibrary.items.back(), material);

    Choose(list, "Marble");
    EXPECT_EQ(rig.Previewed().Plugin, "Marble");
    EXPECT_FALSE(note.isVisible());
}

TEST_F(Editing, WhatFailsAtEveryKeyIsToldAtTheFirstAndAgainAfterItWorked)
{
    OfferPluginAndField(rig);
    auto& field = rig.Field("txtAmbient");
    for (const char* failing : {"Plugin.GetParameters", "Viewport.Draw"}) {
        for (const int value : {123, 124}) {
            rig.platform.prompts.shown.clear();
            rig.log.FailEach(failing, Fault::ClassifiedError);
            Type(field, QString::number(value));
            EXPECT_EQ(rig.platform.prompts.shown.size(), 1U) << failing;
            rig.log.Clear();
            Type(field, QString::number(value));
            EXPECT_EQ(rig.Previewed().Ambient, value);
            EXPECT_EQ(rig.platform.prompts.shown.size(), 1U) << failing;
        }
    }
}

TEST_F(Editing, HostThatAnswersMaterialChangedByCallingBackIsNotTakenInCircles)
{
    CorvexTest::RecordingShape selected(rig.log, "selected", rig.host.sceneGraph.missingMeshes);
    auto& control = rig.Control();
    QObject::connect(&control, &CorvexMaterial::Material::MaterialChanged, [&] {
        std::int32_t colour = 0;
        control.get_lVBColor(colour);
        control.ApplyShapeMaterial(rig.host.Viewport()->TheScene(), selected, false, nullptr,
                                   nullptr, {}, {}, false, {}, {});
    });
    Choose(rig.List("cboColor"), "Black");
    EXPECT_EQ(rig.Changes(), 1U);
    EXPECT_EQ(selected.Material().Color, 0);
}

}  // namespace
