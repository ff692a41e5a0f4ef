#include "ControlRig.h"
#include "SampleMaterial.h"

#include <QFrame>
#include <QStandardItemModel>

namespace {

using namespace CorvexTest;
using CorvexDB::cdtRayTraceMaterialAttributes;

/// The dialog as a user has it before him.
struct Form {
    template <typename Widget>
    Widget& Find(const char* name)
    {
        return FindIn<Widget>(dialog, name);
    }
    QComboBox& List(const char* name) { return Find<QComboBox>(name); }
    bool Enabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
    void Press(const char* name) { Click(Find<QWidget>(name)); }

    QDialog& dialog;
};

class ExtendedDialog : public WithStartedControl {
protected:
    void Open(const std::function<void(Form&)>& use)
    {
        const DialogAnswer answer([&use](QDialog& dialog) {
            Form form{dialog};
            use(form);
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        rig.Press("cmdMaterialExtended");
        EXPECT_TRUE(answer.Given());
    }

    void Give(const cdtRayTraceMaterialAttributes& attributes)
    {
        CorvexDB::udtMaterial material;
        material.RayTrace = attributes;
        ASSERT_EQ(rig.Control().CopyFieldToFormMaterial(material), CorvexMaterial::Status::Success);
        rig.log.Clear();
    }

    const cdtRayTraceMaterialAttributes& Record() { return rig.Previewed().RayTrace; }
};

/// What the sliders and swatches can show.
cdtRayTraceMaterialAttributes Unusual()
{
    cdtRayTraceMaterialAttributes record = KeptMaterial().RayTrace;
    record.NormalPattern = 14;
    record.PredefinedType = 2;
    record.PreDefinedMaterial = 30;
    record.NormalPatternFrequency = 2;
    for (std::size_t i = 0; i < 4; ++i) {
        const auto byte = static_cast<float>(60 * i) / 255.0F;
        record.ColorPatternColor[i] = {byte, 1.0F, 40.0F / 255.0F, 0.125F};
    }
    return record;
}

TEST_F(ExtendedDialog, OkGivesBackWhatItWasGiven)
{
    Give(Unusual());
    Open([](Form& form) {
        EXPECT_EQ(form.List("cboPreDefinedMaterial").currentText(), "Pink Alabaster");
        EXPECT_EQ(form.List("cboNormalPattern").currentText(), "Waves");
        form.Press("cmdOK");
    });
    EXPECT_EQ(Record(), Unusual());
    EXPECT_EQ(rig.Changes(), 1U);
    ASSERT_EQ(rig.warnings.size(), 1U);
    EXPECT_EQ(rig.warnings.front().key, "MaterialExtended");
}

TEST_F(ExtendedDialog, DefaultsThenCancelKeepTheRecordAndThenOkStoresThem)
{
    Give(Unusual());
    Open([](Form& form) {
        form.Press("cmdDefault");
        EXPECT_EQ(form.List("cboPreDefinedMaterial").currentText(), "Clear");
        form.Press("cmdCancel");
    });
    EXPECT_EQ(Record(), Unusual());
    EXPECT_EQ(rig.Changes(), 1U);
    Open([](Form& form) {
        form.Press("cmdDefault");
        form.Press("cmdOK");
    });
    cdtRayTraceMaterialAttributes defaults;
    for (auto& colour : defaults.ColorPatternColor) {
        colour.alpha = 0.125F;
    }
    EXPECT_EQ(Record(), defaults);
}

TEST_F(ExtendedDialog, StartsAtTheFirstOfAType)
{
    Open([](Form& form) {
        form.List("cboPreDefinedMaterial").setCurrentIndex(2);
        form.List("cboPredefinedType").setCurrentIndex(2);
        EXPECT_EQ(form.List("cboPreDefinedMaterial").itemText(0), "Granite #1");
        EXPECT_EQ(form.List("cboPreDefinedMaterial").currentIndex(), 0);
        EXPECT_FALSE(form.Find<QWidget>("lblNotHonored").isVisible()) << "POV-Ray honours all";
    });
}

TEST_F(ExtendedDialog, AColourPatternOffersWhatItTakes)
{
    Open([this](Form& form) {
        const auto states = [&form] {
            std::string text;
            for (const char* name :
                 {"picColorPattern_0", "picColorPattern_1", "picColorPattern_2",
                  "picColorPattern_3", "sldColorPatternFrequency", "sldColorPatternTurbulence"}) {
                text += form.Enabled(name) ? '1' : '0';
            }
            EXPECT_EQ(form.Enabled("sldColorPatternFrequency"),
                      form.Enabled("lblColorPatternFrequency"));
            EXPECT_TRUE(form.Find<QWidget>("sldColorPatternFrequency").isVisible());
            return text;
        };
        auto& list = form.List("cboColorPattern");
        EXPECT_EQ(states(), "111100");
        const auto& sameColours = form.Find<QWidget>("lblSameColors");
        EXPECT_FALSE(sameColours.isVisible());
        Choose(list, "Agate");
        EXPECT_EQ(states(), "111111");
        EXPECT_TRUE(sameColours.isVisible()) << "four times white";
        rig.platform.choosers.colours = {0x302010};
        form.Press("picColorPattern_3");
        EXPECT_FALSE(sameColours.isVisible());
        Choose(list, "Checker");
        EXPECT_EQ(states(), "110000");
        EXPECT_TRUE(sameColours.isVisible()) << "of the two that it takes";
        Choose(list, "None");
        EXPECT_EQ(states(), "110000");
        Choose(list, "Wrinkles");
        EXPECT_EQ(states(), "111111");
    });
}

TEST_F(ExtendedDialog, ANormalPatternHasItsSlidersAndDepthHasAlways)
{
    Open([](Form& form) {
        for (const bool bumpy : {false, true, false}) {
            form.List("cboNormalPattern").setCurrentIndex(bumpy ? 9 : 0);
            for (const char* name : {"sldNormalPatternFrequency", "sldNormalScale",
                                     "sldNormalPatternTurbulence", "lblNormalPatternScale",
                                     "lblNormalPatternTurbulence", "lblNormalPatternFrequency"}) {
                EXPECT_EQ(form.Enabled(name), bumpy) << name;
            }
            EXPECT_TRUE(form.Enabled("sldNormalDepth"));
        }
    });
}

TEST_F(ExtendedDialog, ASwatchSeedsItsChooserExceptWithBlack)
{
    cdtRayTraceMaterialAttributes record;
    record.ColorPatternColor[1] = {0.0F, 0.0F, 0.0F, 0.0F};
    record.ColorPatternColor[2] = {1.0F, 0.0F, 0.0F, 0.0F};
    Give(record);
    Open([this](Form& form) {
        form.Press("picColorPattern_1");
        form.Press("picColorPattern_2");
        rig.platform.choosers.colours = {0x302010};
        form.Press("picColorPattern_2");
        form.Press("cmdOK");
    });
    EXPECT_EQ(rig.log.DetailsOf("Choosers.ChooseColour"), (Texts{"none", "255", "255"}));
    record.ColorPatternColor[2] = {16.0F / 255.0F, 32.0F / 255.0F, 48.0F / 255.0F, 0.0F};
    EXPECT_EQ(Record(), record);
}

TEST_F(ExtendedDialog, GoesWhenItsControlIsClosedUnderIt)
{
    const DialogAnswer answer([this](QDialog&) { rig.Terminate(); });
    rig.Find<QAbstractButton>("cmdMaterialExtended").click();
    EXPECT_TRUE(answer.Given());
}

TEST_F(ExtendedDialog, DisablesWhatARenderManShaderCannotSay)
{
    rig.host.applicationState.raytracer = CorvexDB::Raytracer::RenderMan;
    Open([](Form& form) {
        for (const char* name :
             {"sldReflection", "sldRoughness", "chkMetallic", "cboMaterialType"}) {
            EXPECT_TRUE(form.Enabled(name)) << name;
        }
        for (const char* name :
             {"sldBrilliance", "sldIridescenceFactor", "cboColorPattern", "picColorPattern_0",
              "cboNormalPattern", "sldNormalDepth", "cboPredefinedType"}) {
            EXPECT_FALSE(form.Enabled(name)) << name;
        }
        auto* types = qobject_cast<QStandardItemModel*>(form.List("cboMaterialType").model());
        ASSERT_NE(types, nullptr);
        EXPECT_TRUE(types->item(0)->isEnabled());
        EXPECT_FALSE(types->item(1)->isEnabled());
    });
}

TEST_F(ExtendedDialog, TakesARecordThatNoListHas)
{
    cdtRayTraceMaterialAttributes record;
    record.NormalPattern = 99;
    record.ColorPattern = -4;
    record.PredefinedType = 17;
    record.PreDefinedMaterial = 1000;
    record.Brilliance = -1.0e30F;
    Give(record);
    Open([](Form& form) { form.Press("cmdOK"); });
    cdtRayTraceMaterialAttributes inside;
    inside.Brilliance = 1.0F;
    EXPECT_EQ(Record(), inside);
}

}  // namespace
