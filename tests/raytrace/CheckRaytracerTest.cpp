#include "ControlRig.h"
#include "PovRayJob.h"
#include "RenderManJob.h"

namespace {

using namespace CorvexTest;

const std::string kNoRenderMan =
    "Corvex: " + std::string(CorvexMaterial::kRenderMan.check.notFound);
const std::string kSelect = "Corvex: " + std::string(CorvexMaterial::kRenderMan.check.select);
const std::string kVisit = "Corvex: " + std::string(CorvexMaterial::kRenderMan.check.visit);

using RaytracerCheck = WithStartedControl;

struct Check {
    const char* name;
    std::deque<bool> answers;
    std::string chosen;
    std::string second;  ///< question
};

class RenderManCheck : public RaytracerCheck, public ::testing::WithParamInterface<Check> {};

TEST_P(RenderManCheck, AsksUntilARendererIsKnownAndRemembersIt)
{
    const auto& [name, answers, chosen, second] = GetParam();
    const bool renders = chosen == "/bin/sh";
    rig.host.applicationState.raytracer = CorvexDB::Raytracer::RenderMan;
    rig.platform.prompts.answers = answers;
    rig.platform.choosers.files.assign(chosen.empty() ? 0 : 1, chosen);
    rig.Press("cmdPreview");
    EXPECT_EQ(rig.log.DetailsOf("Prompts.AskYesNo"), (Texts{kNoRenderMan, second}));
    EXPECT_EQ(rig.log.DetailsOf("ApplicationState.OpenWebSite"),
              Texts(second == kVisit && answers.back() ? 1 : 0,
                    std::to_string(static_cast<int>(CorvexDB::WebSite::RenderMan))));
    EXPECT_EQ(rig.platform.settings.Get("RenderManLocation").value_or(""), renders ? chosen : "");
    EXPECT_EQ(rig.log.CountOf("ProcessStarter.Start"), renders ? 1U : 0U);
    EXPECT_TRUE(rig.Find<QAbstractButton>("cmdPreview").isEnabled());
}

INSTANTIATE_TEST_SUITE_P(
    Answers, RenderManCheck,
    ::testing::Values(Check{"NotInstalled", {false, false}, "", kVisit},
                      Check{"WantsToDownload", {false, true}, "", kVisit},
                      Check{"WillNotSelect", {true, false}, "", kSelect},
                      Check{"ChooserCancelled", {true, true}, "", kSelect},
                      Check{"ChoseNoProgram", {true, true}, "/etc/passwd", kSelect},
                      Check{"ChoseAProgram", {true, true}, "/bin/sh", kSelect}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(RaytracerCheck, AKnownRendererIsNotAskedFor)
{
    rig.host.applicationState.raytracer = CorvexDB::Raytracer::RenderMan;
    rig.platform.settings.Put("RenderManLocation", "/opt/my renderer");
    rig.Press("cmdPreview");
    EXPECT_EQ(rig.log.CountOf("Prompts.AskYesNo"), 0U);
    ASSERT_EQ(rig.platform.processes.requests.size(), 1U);
    EXPECT_EQ(rig.platform.processes.requests.front().program, "/opt/my renderer");
    EXPECT_EQ(rig.platform.processes.requests.front().arguments,
              (Texts{"-res", "256", "256", "/temporary/~CVX1.rib"}));
    EXPECT_TRUE(rig.platform.temporaryFiles.written.empty());
}

TEST_F(RaytracerCheck, AMissingPovRayIsExplainedAndNothingRuns)
{
    for (const bool visit : {false, true}) {
        rig.log.Clear();
        rig.host.applicationState.povRayProgram.clear();
        rig.platform.prompts.answers = {visit};
        rig.Press("cmdPreview");
        EXPECT_EQ(rig.log.DetailsOf("Prompts.AskYesNo"),
                  std::vector{"Corvex: " + std::string(CorvexMaterial::kPovRay.check.notFound)});
        EXPECT_EQ(rig.log.CountOf("ApplicationState.OpenWebSite"), visit ? 1U : 0U);
        EXPECT_EQ(rig.log.CountOf("SceneExporter.ExportRaytraceScene"), 0U);
        EXPECT_TRUE(rig.platform.prompts.shown.empty());
        EXPECT_TRUE(rig.Find<QAbstractButton>("cmdPreview").isEnabled());
    }
}

TEST_F(RaytracerCheck, AStoreThatCannotBeWrittenKeepsNothingFromRendering)
{
    for (const auto raytracer : {CorvexDB::Raytracer::PovRay, CorvexDB::Raytracer::RenderMan}) {
        rig.Restart();
        rig.platform.prompts.shown.clear();
        rig.platform.settings.PutTip("POVRayConfiguration", "1");
        rig.host.applicationState.raytracer = raytracer;
        rig.platform.prompts.answers = {true, true};
        rig.platform.choosers.files = {"/bin/sh"};
        rig.log.FailEach("Store.Flush", Fault::ClassifiedError);
        const DialogAnswer hint([](QDialog& dialog) {
            const QString text = FindIn<QLabel>(dialog, "lblWarning").text();
            EXPECT_TRUE(text.startsWith("Please ensure"));
            dialog.accept();
        });
        rig.Press("cmdPreview");
        EXPECT_EQ(hint.Given(), raytracer == CorvexDB::Raytracer::PovRay);
        EXPECT_EQ(rig.log.CountOf("Viewport.ShowBitmap"), 1U);
        ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
        EXPECT_EQ(rig.platform.prompts.shown[0].title, "Corvex");
        EXPECT_EQ(rig.platform.prompts.shown[0].text, "planned failure in Store.Flush");
    }
}

}  // namespace
