#include "CommaLocale.h"
#include "FaultSteps.h"
#include "SampleMaterial.h"
#include "Testing.h"

namespace {

using namespace CorvexTest;
using CorvexDB::ApplyMode;
using CorvexDB::udtMaterial;
using CorvexMaterial::Status;

/// What the kept material leaves in the store, with the changes of the case that uses it.
constexpr const char* kKeptTexts =
    R"(MaterialEmissive=12|MaterialSpecular=13|MaterialTransparency=-14|MaterialAmbient=11|)"
    R"(MaterialColor=2113632|MaterialWrapType=1|MaterialApplyRelative=0|)"
    R"(MaterialWrapOrientationU=True|MaterialWrapOrientationV=False|MaterialDoubleSided=True|)"
    R"(MaterialAlphaTest=5|MaterialAlphaTestReference=99|TextureOverlayTranslucency=33|)"
    "MaterialTexture=/tex/M\u00F6rtel \u77F3.png|MaterialTextureAlphaChannelUse=4|"
    R"(MaterialAlphaIsTransparent=False|MaterialTextureAlpha=/a.png|)"
    R"(MaterialTextureOverlay=/o.png|MaterialTextureBumpmap=/b "c".png|)"
    R"(MaterialTextureSpecularMap=/s.png|MaterialTextureEnvironmentMap=/e=f;g.png|)"
    R"(MaterialPreviewPrimitive=3|MaterialWrapOriginU=0.33333334|MaterialWrapOriginV=0.25|)"
    R"(MaterialWrapScaleU=0.5|MaterialWrapScaleV=-0.75|MaterialTextureFlatWrapType=1|)"
    R"(MaterialWrapTilesPerUnit=0.25|MaterialRayTraceBrilliance=7|MaterialRayTraceReflection=3|)"
    R"(MaterialRayTraceNormalPattern=2|MaterialRayTraceNormalSize=6|)"
    R"(MaterialRayTraceNormalScale=8|MaterialRayTraceIridescenceFactor=1|)"
    R"(MaterialRayTraceIridescenceThickness=2|MaterialRayTraceIridescenceTurbulence=3|)"
    R"(MaterialRayTraceRoughness=4|MaterialRayTraceMetallic=1|MaterialRayTraceType=0|)"
    R"(MaterialRaytracePredefinedType=1|MaterialRaytracePredefinedMaterial=3|)"
    R"(MaterialRaytraceColorPattern=0|MaterialRaytraceColorPattern0Red=0.1|)"
    R"(MaterialRaytraceColorPattern0Green=0.2|MaterialRaytraceColorPattern0Blue=0.3|)"
    R"(MaterialRaytraceColorPattern1Red=0.4|MaterialRaytraceColorPattern1Green=0.45|)"
    R"(MaterialRaytraceColorPattern1Blue=0.55|MaterialRaytraceColorPattern2Red=0.6|)"
    R"(MaterialRaytraceColorPattern2Green=0.65|MaterialRaytraceColorPattern2Blue=0.35|)"
    R"(MaterialRaytraceColorPattern3Red=0.5|MaterialRaytraceColorPattern3Green=0.25|)"
    R"(MaterialRaytraceColorPattern3Blue=0.7|MaterialRaytraceColorPatternFrequencey=9|)"
    R"(MaterialRaytraceColorPatternTurbulence=10|MaterialRaytraceNormalFreqency=0.5|)"
    R"(MaterialRaytraceNormalTurbulence=5|MaterialPlugin=None|TextureLibrary=Gems.cvt|)"
    R"(MaterialLibrary=Gems.cvm|)";

class SavedStateFlow : public ::testing::Test {
protected:
    void SetUp() override { rig.Start(); }

    /// Index in the log of the first call with this detail; past the end when there is none.
    std::size_t IndexOf(const std::string& detail) const
    {
        const auto& calls = rig.log.Calls();
        const auto matches = [&](const Call& call) { return call.detail == detail; };
        return static_cast<std::size_t>(std::ranges::find_if(calls, matches) - calls.begin());
    }

    ControlRig rig;
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

TEST_F(SavedStateFlow, EachAttributeIsKeptUnderItsKeyAndWrittenAgainByARunWithoutEdits)
{
    rig.Control().CopyFieldToFormMaterial(KeptMaterial());
    rig.Control().put_lPreviewPrimitive(3);
    rig.Press("chkFlipV");
    rig.Press("chkAlphaIsTransparent");
    rig.Terminate();
    const auto first = rig.log.DetailsOf("Store.Write");
    std::string texts;
    for (const std::string& write : first) {
        texts += write.substr(write.find('/') + 1) + "|";
    }
    EXPECT_EQ(texts, kKeptTexts);
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
    ASSERT_GT(writes.size(), 8U);
    EXPECT_EQ(writes.front(), "Application/MaterialEmissive=half");
    EXPECT_EQ(
        Texts(writes.end() - 8, writes.end()),
        (Texts{"Application/MaterialPlugin=Marble", "Application/MaterialPluginParameter0=1",
               "Application/MaterialPluginParameter1=1", "Application/MaterialPluginParameter2=1",
               "Application/MaterialPluginParameter3=1", "Application/MaterialPluginParameter4=1",
               "Application/TextureLibrary=Gems.cvt", "Application/MaterialLibrary=Gems.cvm"}));
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
