#include "ControlRig.h"

namespace {

using namespace CorvexTest;
using CorvexMaterial::IMaterial;
using CorvexMaterial::Status;

constexpr const char* kMeshes[] = {"previewcube.x", "previewcylinder.x", "previewsphere.x",
                                   "previewtorus.x", "previewcone.x"};

using Preview = WithControl;

TEST_F(Preview, LoadsFiveMeshesInOrderAndOnceOnly)
{
    rig.Create();
    rig.Control().SetSceneDetails(rig.host.sceneGraph);
    EXPECT_EQ(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
    Texts paths;
    Texts steps;
    for (const char* mesh : kMeshes) {
        paths.push_back("/control/System/" + std::string(mesh));
        steps.insert(steps.end(), {"Shape.LoadMeshFile", "Shape.SetShapeOption"});
    }
    EXPECT_EQ(rig.log.DetailsOf("Shape.LoadMeshFile"), paths);
    EXPECT_EQ(rig.log.DetailsOf("Shape.SetShapeOption"), Texts(5, "2"));
    EXPECT_EQ(rig.log.Order({"Shape.LoadMeshFile", "Shape.SetShapeOption"}), steps);
    EXPECT_EQ(rig.Changes(), 1U);

    EXPECT_EQ(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
    for (std::int32_t code = 0; code < 5; ++code) {
        EXPECT_EQ(rig.Control().put_lPreviewPrimitive(code), Status::Success);
        EXPECT_EQ(rig.ShownMesh(), kMeshes[code]);
    }
    EXPECT_EQ(rig.log.CountOf("Shape.LoadMeshFile"), 5U);
}

TEST_F(Preview, AMissingTorusEndsTheLoadingThereAndTheEarlierShapesStay)
{
    rig.host.sceneGraph.missingMeshes = {"previewtorus.x"};
    rig.Create();
    rig.Control().SetSceneDetails(rig.host.sceneGraph);
    EXPECT_EQ(rig.Control().InitializeMaterialPreviewScene(), Status::FileFailed);
    EXPECT_EQ(rig.log.CountOf("Shape.LoadMeshFile"), 4U);
    ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_NE(rig.platform.prompts.shown[0].text.find("previewtorus.x"), std::string::npos);

    rig.Control().LoadSavedStatus();
    for (std::int32_t code = 0; code < 3; ++code) {
        rig.Control().put_lPreviewPrimitive(code);
        EXPECT_EQ(rig.ShownMesh(), kMeshes[code]);
    }
    for (const std::int32_t code : {3, 4, 5, -1}) {
        rig.Control().put_lPreviewPrimitive(0);
        rig.log.Clear();
        EXPECT_EQ(rig.Control().put_lPreviewPrimitive(code), Status::Success);
        EXPECT_EQ(rig.Read(&IMaterial::get_lPreviewPrimitive), code);
        EXPECT_EQ(rig.ShownMesh(), "") << "the shape before would be a lie";
        EXPECT_EQ(rig.log.CountOf("Viewport.Draw"), 1U);
        EXPECT_EQ(rig.Changes(), 1U);
    }
    EXPECT_EQ(rig.platform.prompts.shown.size(), 1U);
}

TEST_F(Preview, AHostThatFailsWhileTheSceneIsBuiltLeavesAUsablePanel)
{
    rig.Create();
    rig.Control().SetSceneDetails(rig.host.sceneGraph);
    rig.log.Clear();
    rig.Control().InitializeMaterialPreviewScene();
    const std::size_t calls = rig.log.Entered();
    for (std::size_t number = 0; number < calls; ++number) {
        rig.Create();
        rig.Control().SetSceneDetails(rig.host.sceneGraph);
        rig.log.Clear();
        rig.log.FailCall(number, kFaults[number % std::size(kFaults)]);
        EXPECT_NE(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
        rig.log.Clear();
        EXPECT_EQ(rig.Control().put_lVBColor(255), Status::Success);
        EXPECT_EQ(rig.Changes(), 1U);
    }
}

TEST_F(Preview, OtherCodesShowTheEmptyShapeAndSurviveARestart)
{
    for (const std::int32_t code : {7, -3, INT32_MAX, INT32_MIN}) {
        rig.Start();
        rig.Control().put_lPreviewPrimitive(code);
        EXPECT_EQ(rig.ShownMesh(), "");
        EXPECT_EQ(rig.Read(&IMaterial::get_csMaterialShape),
                  rig.host.Viewport()->TheScene().Shown());
        rig.Restart();
        EXPECT_EQ(rig.Read(&IMaterial::get_lPreviewPrimitive), code);
        EXPECT_EQ(rig.ShownMesh(), "");
        rig.Terminate();
    }
}

TEST_F(Preview, PickerShowsTheChosenPrimitiveAndOnlyRedrawsWithoutAChoice)
{
    rig.Start();
    const auto pictureBefore = rig.Find<QAbstractButton>("cmdPreviewPrimitive").icon().cacheKey();
    const DialogAnswer answer([](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "frmPreviewPrimitiveDialog");
        Click(*dialog.findChild<QWidget*>("cmdPrimitive_3"));
    });
    rig.Press("cmdPreviewPrimitive");
    EXPECT_TRUE(answer.Given());
    EXPECT_EQ(rig.Read(&IMaterial::get_lPreviewPrimitive), 3);
    EXPECT_EQ(rig.ShownMesh(), "previewtorus.x");
    EXPECT_EQ(rig.Changes(), 1U);
    EXPECT_NE(rig.Find<QAbstractButton>("cmdPreviewPrimitive").icon().cacheKey(), pictureBefore);
    EXPECT_EQ(rig.Previewed(), CorvexDB::udtMaterial());

    rig.log.Clear();
    const DialogAnswer none([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    rig.Press("cmdPreviewPrimitive");
    EXPECT_TRUE(none.Given());
    EXPECT_EQ(rig.ShownMesh(), "previewtorus.x");
    EXPECT_EQ(rig.Changes(), 0U);
    EXPECT_EQ(rig.log.CountOf("Viewport.Draw"), 1U);

    const DialogAnswer closing([this](QDialog&) { rig.Terminate(); });
    rig.Find<QAbstractButton>("cmdPreviewPrimitive").click();
    EXPECT_TRUE(closing.Given());
}

TEST_F(Preview, RenderMaterialNudgesTheShapeAndLeavesItWhereItWas)
{
    rig.Start();
    EXPECT_EQ(rig.Control().RenderMaterial(), Status::Success);
    EXPECT_EQ(rig.log.Order({"Viewport.Prepare", "Shape.Move", "Viewport.Draw"}),
              (Texts{"Viewport.Prepare", "Shape.Move", "Shape.Move", "Viewport.Draw"}));
    EXPECT_EQ(rig.log.DetailsOf("Shape.Move"), (Texts{"0.000100 mode 2", "-0.000100 mode 2"}));
    EXPECT_EQ(rig.log.CountOf("Editport.Redraw"), 0U);
    EXPECT_EQ(rig.Changes(), 0U);

    rig.Control().put_bTexturePanel(true);
    rig.Control().put_bMaterialLibraryPanel(true);
    rig.log.Clear();
    rig.Control().RenderMaterial();
    EXPECT_EQ(rig.log.DetailsOf("Editport.Redraw"), (Texts{"textures", "materials", "materials"}));
}

TEST_F(Preview, ViewportTellsTheHostThroughTheControl)
{
    rig.Start();
    ASSERT_NE(rig.host.Viewport()->listener, nullptr);
    rig.host.Viewport()->listener->PositionChanged("12\u00B0, 34\u00B0");
    ASSERT_EQ(rig.positionTexts.size(), 1U);
    EXPECT_EQ(rig.positionTexts[0], QString::fromUtf8("12\u00B0, 34\u00B0"));
    rig.host.Viewport()->listener->ViewChanged();
    EXPECT_EQ(rig.Changes(), 1U);
}

TEST_F(Preview, ADeviceResetRebuildsWithoutReadingMeshes)
{
    rig.Start();
    EXPECT_EQ(rig.Control().ResetDevices(), Status::Success);
    EXPECT_EQ(rig.log.CountOf("Viewport.ResetDevice"), 1U);
    EXPECT_EQ(rig.log.CountOf("Shape.LoadMeshFile"), 0U);
    EXPECT_GE(rig.log.CountOf("Viewport.Draw"), 1U);
}

TEST_F(Preview, BackgroundsComeFromTheStoreUntilTheHostSetsThem)
{
    rig.platform.settings.Put("ColorBackgroundTexture", "255");
    rig.Create();
    rig.Control().LoadSavedStatus();
    EXPECT_EQ(rig.log.DetailsOf("Viewport.SetBackColor").back(), "15663086");
    EXPECT_EQ(rig.log.DetailsOf("Editport.SetBackColor"),
              (Texts{"materials 15663086", "textures 255"}));
    rig.log.Clear();
    EXPECT_EQ(rig.Control().SetBackColor(1, 2, 3), Status::Success);
    EXPECT_EQ(rig.log.DetailsOf("Viewport.SetBackColor"), (Texts{"1"}));
    EXPECT_EQ(rig.log.DetailsOf("Editport.SetBackColor"), (Texts{"materials 2", "textures 3"}));
}

TEST_F(Preview, InitialisingWithoutASceneGraphIsRefusedAndCanBeRepeated)
{
    rig.Create();
    EXPECT_NE(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
    rig.Control().SetSceneDetails(rig.host.sceneGraph);
    EXPECT_EQ(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
    EXPECT_EQ(rig.ShownMesh(), "previewsphere.x");
}

}  // namespace
