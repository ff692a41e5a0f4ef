#include "tests/support/ControlRig.h"

#include <QAbstractButton>
#include <QDialog>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace CorvexTest;
using CorvexMaterial::Status;

constexpr const char* kMeshes[] = {"previewcube.x", "previewcylinder.x", "previewsphere.x",
                                   "previewtorus.x", "previewcone.x"};

std::int32_t PrimitiveOf(ControlRig& rig)
{
    std::int32_t code = -1;
    rig.Control().get_lPreviewPrimitive(code);
    return code;
}

std::string ShownMesh(ControlRig& rig)
{
    const RecordingShape* shown = rig.host.Viewport()->TheScene().Shown();
    return shown == nullptr ? "nothing" : shown->MeshFile();
}

void PressPrimitive(QDialog& dialog, const char* name)
{
    auto* button = dialog.findChild<QAbstractButton*>(QString::fromLatin1(name));
    ASSERT_NE(button, nullptr);
    Click(*button);
}

class Preview : public ::testing::Test {
protected:
    ControlRig rig;
};

TEST_F(Preview, LoadsFiveMeshesInOrderAndOnceOnly)
{
    rig.Create();
    rig.Control().SetSceneDetails(rig.host.sceneGraph);
    EXPECT_EQ(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
    std::vector<std::string> paths;
    for (const char* mesh : kMeshes) {
        paths.push_back("/control/System/" + std::string(mesh));
    }
    EXPECT_EQ(rig.log.DetailsOf("Shape.LoadMeshFile"), paths);
    EXPECT_EQ(rig.log.DetailsOf("Shape.SetShapeOption"), std::vector<std::string>(5, "2"));
    const auto steps = rig.log.Order({"Shape.LoadMeshFile", "Shape.SetShapeOption"});
    for (std::size_t i = 0; i < steps.size(); ++i) {
        EXPECT_EQ(steps[i], i % 2 == 0 ? "Shape.LoadMeshFile" : "Shape.SetShapeOption");
    }
    EXPECT_EQ(rig.Changes(), 1U);

    EXPECT_EQ(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
    for (std::int32_t code = 0; code < 5; ++code) {
        EXPECT_EQ(rig.Control().put_lPreviewPrimitive(code), Status::Success);
        EXPECT_EQ(ShownMesh(rig), kMeshes[code]);
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
        EXPECT_EQ(ShownMesh(rig), kMeshes[code]);
    }
    for (const std::int32_t code : {3, 4, 5, -1}) {
        rig.Control().put_lPreviewPrimitive(0);
        rig.log.Clear();
        EXPECT_EQ(rig.Control().put_lPreviewPrimitive(code), Status::Success);
        EXPECT_EQ(PrimitiveOf(rig), code);
        EXPECT_EQ(ShownMesh(rig), "") << "the shape before would be a lie";
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
    for (const std::int32_t code : {7, -3}) {
        rig.Start();
        rig.Control().put_lPreviewPrimitive(code);
        EXPECT_EQ(ShownMesh(rig), "");
        CorvexSG::Shape* shape = nullptr;
        rig.Control().get_csMaterialShape(shape);
        EXPECT_EQ(shape, rig.host.Viewport()->TheScene().Shown());
        rig.Restart();
        EXPECT_EQ(PrimitiveOf(rig), code);
        EXPECT_EQ(ShownMesh(rig), "");
        rig.Terminate();
    }
}

TEST_F(Preview, PickerShowsTheChosenPrimitive)
{
    rig.Start();
    const auto pictureBefore = rig.Find<QAbstractButton>("cmdPreviewPrimitive").icon().cacheKey();
    const DialogAnswer answer([](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "frmPreviewPrimitiveDialog");
        PressPrimitive(dialog, "cmdPrimitive_3");
    });
    rig.Press("cmdPreviewPrimitive");
    EXPECT_TRUE(answer.Given());
    EXPECT_EQ(PrimitiveOf(rig), 3);
    EXPECT_EQ(ShownMesh(rig), "previewtorus.x");
    EXPECT_EQ(rig.Changes(), 1U);
    EXPECT_NE(rig.Find<QAbstractButton>("cmdPreviewPrimitive").icon().cacheKey(), pictureBefore);
    EXPECT_EQ(rig.Previewed(), CorvexDB::udtMaterial());
}

TEST_F(Preview, PickerClosedWithoutAChoiceOnlyRedraws)
{
    rig.Start();
    const DialogAnswer answer([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    rig.Press("cmdPreviewPrimitive");
    EXPECT_TRUE(answer.Given());
    EXPECT_EQ(PrimitiveOf(rig), 2);
    EXPECT_EQ(rig.Changes(), 0U);
    EXPECT_EQ(rig.log.CountOf("Viewport.Draw"), 1U);
}

TEST_F(Preview, RenderMaterialNudgesTheShapeAndLeavesItWhereItWas)
{
    rig.Start();
    EXPECT_EQ(rig.Control().RenderMaterial(), Status::Success);
    EXPECT_EQ(rig.log.Order({"Viewport.Prepare", "Shape.Move", "Viewport.Draw"}),
              (std::vector<std::string>{"Viewport.Prepare", "Shape.Move", "Shape.Move",
                                        "Viewport.Draw"}));
    EXPECT_EQ(rig.log.DetailsOf("Shape.Move"),
              (std::vector<std::string>{"0.000100 mode 2", "-0.000100 mode 2"}));
    EXPECT_EQ(rig.log.CountOf("Editport.Redraw"), 0U);
    EXPECT_EQ(rig.Changes(), 0U);

    rig.Control().put_bTexturePanel(true);
    rig.Control().put_bMaterialLibraryPanel(true);
    rig.log.Clear();
    rig.Control().RenderMaterial();
    EXPECT_EQ(rig.log.DetailsOf("Editport.Redraw"),
              (std::vector<std::string>{"textures", "materials", "materials"}));
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
              (std::vector<std::string>{"materials 15663086", "textures 255"}));
    rig.log.Clear();
    EXPECT_EQ(rig.Control().SetBackColor(1, 2, 3), Status::Success);
    EXPECT_EQ(rig.log.DetailsOf("Viewport.SetBackColor"), (std::vector<std::string>{"1"}));
    EXPECT_EQ(rig.log.DetailsOf("Editport.SetBackColor"),
              (std::vector<std::string>{"materials 2", "textures 3"}));
}

TEST_F(Preview, InitialisingWithoutASceneGraphIsRefusedAndCanBeRepeated)
{
    rig.Create();
    EXPECT_NE(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
    rig.Control().SetSceneDetails(rig.host.sceneGraph);
    EXPECT_EQ(rig.Control().InitializeMaterialPreviewScene(), Status::Success);
    EXPECT_EQ(ShownMesh(rig), "previewsphere.x");
}

}  // namespace
