#include "CommaLocale.h"
#include "FaultSteps.h"
#include "SampleMaterial.h"

namespace {

using namespace CorvexTest;
using CorvexDB::ApplyMode;
using CorvexDB::udtMaterial;
using CorvexMaterial::Status;

class SavedStateFlow : public WithStartedControl {
protected:
    /// Index in the log of the first call with this detail; past the end when there is none.
    std::size_t IndexOf(const std::string& detail) const
    {
        const auto& calls = rig.log.Calls();
        const auto matches = [&](const Call& call) { return call.detail == detail; };
        return static_cast<std::size_t>(std::ranges::find_if(calls, matches) - calls.begin());
    }
};

TEST_F(SavedStateFlow, EverythingKeptComesBackAfterARestart)
{
    rig.Control().CopyFieldToFormMaterial(FullMaterial());
    rig.Control().put_lPreviewPrimitive(1);
    rig.Control().put_ApplyRelative(ApplyMode::Relative);
    rig.Restart();
    EXPECT_EQ(rig.Previewed(), KeptMaterial());
    EXPECT_EQ(rig.ShownMesh(), "previewcylinder.x");
    EXPECT_FALSE(rig.Tick("chkApplyRelative").isChecked());
    EXPECT_TRUE(rig.Field("txtAlphaTestReference").isEnabled());
    EXPECT_EQ(rig.List("cboColor").currentText(), "Custom");
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
}

TEST_F(SavedStateFlow, ARunWithoutEditsWritesWhatItFound)
{
    rig.Control().CopyFieldToFormMaterial(KeptMaterial());
    rig.Control().put_lPreviewPrimitive(3);
    rig.Terminate();
    const auto first = rig.log.DetailsOf("Store.Write");
    EXPECT_THAT(first,
                testing::IsSupersetOf({"Application/MaterialWrapOriginU=0.33333334",
                                       "Application/MaterialTextureEnvironmentMap=/e=f;g.png",
                                       "Application/MaterialRaytraceColorPatternFrequencey=9"}));
    rig.Start();
    rig.Terminate();
    EXPECT_EQ(rig.log.DetailsOf("Store.Write"), first);
}

TEST_F(SavedStateFlow, TerminationWritesBetweenItsTwoLinesAndFlushesOnce)
{
    OfferPluginAndField(rig);
    Type(rig.Field("txtEmissive"), "half");
    rig.Terminate();
    const std::size_t begin = IndexOf("Material instance terminating");
    const std::size_t end = IndexOf("Material instance terminated");
    ASSERT_LT(end, rig.log.Calls().size());
    const auto& calls = rig.log.Calls();
    const auto writes = rig.log.DetailsOf("Store.Write");
    EXPECT_EQ(writes.front(), "Application/MaterialEmissive=half");
    EXPECT_THAT(writes, testing::Contains("Application/MaterialPluginParameter4=1"));
    EXPECT_EQ(writes.back(), "Application/MaterialProjectionTurnZ=0") << "what came later";
    for (std::size_t i = 0; i < calls.size(); ++i) {
        if (calls[i].name == "Store.Write" || calls[i].name == "Store.Flush") {
            EXPECT_GT(i, begin);
            EXPECT_LT(i, end);
        }
    }
    EXPECT_EQ(rig.log.CountOf("Store.Flush"), 1U);
    EXPECT_EQ(rig.log.CountOf("Diagnostics.RecordEvent"), 2U);
}

TEST_F(SavedStateFlow, LoadingRefreshesOnce)
{
    rig.platform.settings.Put("MaterialAmbient", "5");
    rig.platform.settings.Put("MaterialAlphaTest", "5");
    rig.platform.settings.Put("MaterialPreviewPrimitive", "3");
    rig.log.Clear();
    EXPECT_EQ(rig.Control().LoadSavedStatus(), Status::Success);
    EXPECT_EQ(rig.Changes(), 1U);
    const std::size_t applied =
        rig.log.CountOf("Shape.ApplyMaterial") + rig.log.CountOf("Shape.ApplyMaterialWrapped");
    EXPECT_EQ(applied, 1U);
    EXPECT_EQ(rig.log.CountOf("Store.Write"), 0U);
    EXPECT_EQ(rig.log.Order().back(), "Event.MaterialChanged");
}

TEST_F(SavedStateFlow, UserDefaultsComeBackButFourAttributesStay)
{
    rig.Control().CopyFieldToFormMaterial(FullMaterial());
    rig.Control().put_lPreviewPrimitive(1);
    rig.log.Clear();
    rig.Press("cmdMaterialRemember");
    EXPECT_EQ(rig.log.CountOf("Store.Flush"), 1U);
    EXPECT_EQ(rig.log.CountOf("Store.Read"), 0U);

    rig.log.Clear();
    rig.Press("cmdMaterialResetDefaults");
    EXPECT_EQ(rig.Previewed(), udtMaterial());
    EXPECT_EQ(rig.Changes(), 1U);
    EXPECT_EQ(rig.log.CountOf("Store.Read") + rig.log.CountOf("Store.Write"), 0U);
    rig.Press("chkApplyRelative");
    rig.Control().put_lPreviewPrimitive(4);
    rig.log.Clear();
    rig.Press("cmdMaterialResetUserDefaults");
    udtMaterial expected = FullMaterial();
    expected.RayTrace.MaterialType = 0;
    expected.RayTrace.ColorPattern = 0;
    EXPECT_EQ(rig.Previewed(), expected);
    EXPECT_TRUE(rig.Tick("chkApplyRelative").isChecked());
    EXPECT_EQ(rig.ShownMesh(), "previewcone.x");
    EXPECT_EQ(rig.Changes(), 1U);
    EXPECT_EQ(rig.log.CountOf("Store.Write"), 0U);
}

TEST_F(SavedStateFlow, TheApplicationsNameMayChange)
{
    rig.host.applicationState.applicationName = "Corvex Light";
    rig.platform.settings.application = "Corvex Light";
    rig.Terminate();
    EXPECT_EQ(rig.platform.settings.Get("MaterialAmbient"), "60");
}

TEST_F(SavedStateFlow, AStoreThatCannotBeWrittenIsToldOnceAndTheWorkGoesOn)
{
    rig.log.FailEach("Store.Flush", Fault::ClassifiedError);
    rig.Press("cmdMaterialRemember");
    ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.platform.prompts.shown[0].title, "Corvex") << "no fault of the program";
    EXPECT_EQ(rig.platform.prompts.shown[0].text, "planned failure in Store.Flush");
    EXPECT_TRUE(rig.platform.prompts.shown[0].details.starts_with("Error #: 6 "));
    EXPECT_EQ(rig.Control().SaveStatus(), Status::FileFailed);
    rig.log.FailEach("Store.Flush", Fault::ClassifiedError);
    rig.Terminate();
    EXPECT_LT(IndexOf("Material instance terminated"), rig.log.Calls().size());
}

TEST_F(SavedStateFlow, StateMovesBetweenLocales)
{
    udtMaterial material = KeptMaterial();
    material.Ambient = 123456;
    {
        const CommaLocale commas;
        rig.Control().CopyFieldToFormMaterial(material);
        rig.Terminate();
        EXPECT_EQ(rig.platform.settings.Get("MaterialWrapTilesPerUnit"), "0.25");
        EXPECT_EQ(rig.platform.settings.Get("MaterialAmbient"), "123456");
        rig.Start();
        EXPECT_EQ(rig.Previewed(), material);
    }
    rig.Restart();
    EXPECT_EQ(rig.Previewed(), material);
}

}  // namespace
