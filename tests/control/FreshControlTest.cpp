#include "ControlRig.h"

namespace {

using namespace CorvexTest;
using CorvexMaterial::IMaterial;
using CorvexMaterial::Status;

using FreshControl = WithControl;

TEST_F(FreshControl, ShowsFactoryValuesBeforeAndAfterLoadingAnEmptyStore)
{
    rig.Create();
    EXPECT_EQ(rig.log.CountOf("Store.Read"), 0U);
    EXPECT_EQ(rig.List("cboColor").currentText(), "White");
    EXPECT_EQ(rig.Field("txtAmbient").text(), "60");
    EXPECT_EQ(rig.Read(&IMaterial::get_lPreviewPrimitive), 2);
    EXPECT_EQ(rig.Read(&IMaterial::get_hwnd), rig.Control().winId());
    rig.Start();
    EXPECT_EQ(rig.Previewed(), CorvexDB::udtMaterial());
    EXPECT_FALSE(rig.Field("txtAlphaTestReference").isEnabled());
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
}

TEST_F(FreshControl, HostMayWriteAndApplyBeforeAnythingIsLoaded)
{
    rig.Create();
    auto& control = rig.Control();
    EXPECT_EQ(control.put_lVBColor(255), Status::Success);
    EXPECT_EQ(control.put_lPreviewPrimitive(4), Status::Success);
    EXPECT_EQ(control.put_Enabled(false), Status::Success);
    EXPECT_EQ(control.put_Enabled(true), Status::Success);
    EXPECT_EQ(rig.log.CountOf("Shape.LoadMeshFile"), 0U);
    EXPECT_TRUE(rig.platform.prompts.shown.empty());

    EXPECT_EQ(rig.Read(&IMaterial::get_lVBColor), 255);
    EXPECT_EQ(rig.Read(&IMaterial::get_csMaterialShape), nullptr);

    control.SetSceneDetails(rig.host.sceneGraph);
    EXPECT_EQ(control.InitializeMaterialPreviewScene(), Status::Success);
    EXPECT_EQ(rig.Previewed().Color, 255);
    EXPECT_EQ(rig.ShownMesh(), "previewcone.x");
}

TEST_F(FreshControl, LoadingTwiceFillsEachListOnce)
{
    rig.Start();
    rig.Control().LoadSavedStatus();
    EXPECT_EQ(rig.List("cboAlphaTest").count(), 8);
    EXPECT_EQ(rig.List("cboAlphaTest").itemText(7), "Always");
    EXPECT_EQ(rig.List("cboColor").count(), 156);
    EXPECT_EQ(rig.List("cboColor").itemText(155), "Custom");
}

TEST_F(FreshControl, DisablingGivesEachPartItsOwnStateBack)
{
    rig.Start();
    auto& control = rig.Control();
    EXPECT_EQ(control.put_Enabled(false), Status::Success);
    EXPECT_FALSE(rig.Field("txtAmbient").isEnabled());
    EXPECT_FALSE(rig.Read(&IMaterial::get_Enabled));

    // A change while disabled decides what comes back.
    rig.platform.settings.Put("MaterialAlphaTest", "4");
    control.LoadSavedStatus();
    EXPECT_FALSE(rig.Field("txtAlphaTestReference").isEnabled());

    control.put_Enabled(true);
    EXPECT_TRUE(rig.Field("txtAmbient").isEnabled());
    EXPECT_TRUE(rig.Field("txtAlphaTestReference").isEnabled());
    rig.platform.settings.Put("MaterialAlphaTest", "0");
    control.LoadSavedStatus();
    control.put_Enabled(false);
    control.put_Enabled(true);
    EXPECT_FALSE(rig.Field("txtAlphaTestReference").isEnabled());
}

}  // namespace
