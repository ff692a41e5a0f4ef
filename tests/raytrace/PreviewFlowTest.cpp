#include "ControlRig.h"
#include "RaytraceMessages.h"

namespace {

using namespace CorvexTest;
using namespace CorvexMaterial;

class PreviewFlow : public WithStartedControl {
protected:
    void ExpectCleanEnd()
    {
        EXPECT_TRUE(rig.platform.temporaryFiles.present.empty());
        EXPECT_TRUE(rig.Find<QAbstractButton>("cmdPreview").isEnabled());
    }

    void UseRenderMan()
    {
        rig.host.applicationState.raytracer = CorvexDB::Raytracer::RenderMan;
        rig.platform.settings.Put("RenderManLocation", "/bin/renderer");
    }
};

TEST_F(PreviewFlow, RunsInItsOrder)
{
    rig.Press("cmdPreview");
    const Texts order{"Viewport.PrepareRaytracedPicture",  "Viewport.Size",
                      "ApplicationState.AntialiasChoice",  "TemporaryFiles.Claim",
                      "SceneExporter.ExportRaytraceScene", "TemporaryFiles.Write",
                      "SceneExporter.TexturesInUse",       "ProcessStarter.Start",
                      "TemporaryFiles.HasContent",         "Viewport.ShowBitmap",
                      "SceneExporter.RaytraceEnded"};
    EXPECT_EQ(rig.log.Order(order), order);
    EXPECT_EQ(rig.Changes(), 0U);
    EXPECT_EQ(rig.log.DetailsOf("Viewport.ShowBitmap"), Texts{"/temporary/~CVX1.bmp"});
    EXPECT_EQ(rig.log.DetailsOf("Diagnostics.DebugTrace"),
              (Texts{"POVRay Library_Path(0)=/scenes/", "POVRay Library_Path(1)=/media/"}));
    const auto& request = rig.host.exporter.requests.at(0);
    EXPECT_EQ(request.aspectRatio, 1.0F);
    EXPECT_EQ(request.constant, 0.1F);
    EXPECT_EQ(request.view, CorvexSG::RaytraceView::Scene);
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    ExpectCleanEnd();
}

TEST_F(PreviewFlow, AnOldImageIsGoneBeforeTheRaytracerStarts)
{
    rig.Press("cmdPreview");
    const auto order = rig.log.Order({"TemporaryFiles.Remove", "ProcessStarter.Start"});
    ASSERT_FALSE(order.empty());
    EXPECT_EQ(order.front(), "TemporaryFiles.Remove");
    EXPECT_EQ(rig.log.DetailsOf("TemporaryFiles.Remove").front(), "/temporary/~CVX1.bmp");
}

TEST_F(PreviewFlow, ErrorsOfThePreviewItselfAreItsOwnBox)
{
    for (const char* call :
         {"Viewport.PrepareRaytracedPicture", "Viewport.Size", "SceneExporter.ExportRaytraceScene",
          "TemporaryFiles.Claim", "TemporaryFiles.Write", "Viewport.ShowBitmap"}) {
        rig.log.Clear();
        rig.platform.prompts.shown.clear();
        rig.log.FailEach(call, Fault::StandardException);
        rig.Press("cmdPreview");
        SCOPED_TRACE(call);
        ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
        EXPECT_EQ(rig.platform.prompts.shown.front().text, kPreviewFailed);
        EXPECT_EQ(rig.platform.prompts.shown.front().icon, PromptIcon::Critical);
        ExpectCleanEnd();
    }
}

TEST_F(PreviewFlow, TexturesThatTheRaytracerDoesNotTakeAbandonTheJob)
{
    struct Row {
        bool renderMan;
        const char* texture;
        const char* text;
    };
    for (const Row& row :
         {Row{false, "/wood.tif",
              "POVRay does not support the use of TIF textures. This scene uses TIF textures."},
          Row{true, "/wood.png",
              "This raytracer requires the use of TIF textures. This scene uses non-TIF "
              "textures."}}) {
        if (row.renderMan) {
            UseRenderMan();
        }
        rig.log.Clear();
        rig.platform.prompts.shown.clear();
        rig.host.exporter.textures = {row.texture};
        rig.Press("cmdPreview");
        ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
        EXPECT_EQ(rig.platform.prompts.shown.front().text, row.text);
        EXPECT_EQ(rig.platform.prompts.shown.front().icon, PromptIcon::Exclamation);
        EXPECT_EQ(rig.log.CountOf("RaytraceServices.RaytraceAbandoned"), 1U);
        EXPECT_EQ(rig.log.CountOf("ProcessStarter.Start"), 0U);
        ExpectCleanEnd();
    }
}

TEST_F(PreviewFlow, AnOldImageThatCannotBeRemovedIsNotShown)
{
    rig.log.FailEach("TemporaryFiles.Remove", Fault::ClassifiedError);
    rig.Press("cmdPreview");
    EXPECT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.log.CountOf("Viewport.ShowBitmap"), 0U);
    EXPECT_TRUE(rig.Find<QAbstractButton>("cmdPreview").isEnabled());
    rig.log.Clear();
    rig.Press("cmdPreview");
    EXPECT_EQ(rig.log.CountOf("Viewport.ShowBitmap"), 1U);
}

}  // namespace
