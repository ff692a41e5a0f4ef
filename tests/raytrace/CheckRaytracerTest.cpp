#include "ControlRig.h"
#include "PovRayJob.h"
#include "RenderManJob.h"

namespace {

using namespace CorvexTest;
using CorvexDB::WebSite;

const std::string kNoRenderMan =
    "Corvex: " + std::string(CorvexMaterial::kRenderMan.check.notFound);
const std::string kSelect = "Corvex: " + std::string(CorvexMaterial::kRenderMan.check.select);
const std::string kVisit = "Corvex: " + std::string(CorvexMaterial::kRenderMan.check.visit);

struct Check {
    const char* name;
    std::deque<bool> answers;
    std::deque<std::string> files;
    std::vector<std::string> questions;
    std::vector<std::string> sites;
    std::string location;
    bool renders;
};

class RenderManCheck : public ::testing::TestWithParam<Check> {};

TEST_P(RenderManCheck, AsksUntilARendererIsKnownAndRemembersIt)
{
    const Check& check = GetParam();
    ControlRig rig;
    rig.Start();
    rig.host.applicationState.raytracer = CorvexDB::Raytracer::RenderMan;
    rig.platform.prompts.answers = check.answers;
    rig.platform.choosers.files = check.files;
    rig.Press("cmdPreview");
    EXPECT_EQ(rig.log.DetailsOf("Prompts.AskYesNo"), check.questions);
    EXPECT_EQ(rig.log.DetailsOf("ApplicationState.OpenWebSite"), check.sites);
    EXPECT_EQ(rig.platform.settings.Get("RenderManLocation").value_or(""), check.location);
    EXPECT_EQ(rig.log.CountOf("ProcessStarter.Start"), check.renders ? 1U : 0U);
    EXPECT_TRUE(rig.Find<QAbstractButton>("cmdPreview").isEnabled());
}

INSTANTIATE_TEST_SUITE_P(
    Answers, RenderManCheck,
    ::testing::Values(
        Check{"NotInstalled", {false, false}, {}, {kNoRenderMan, kVisit}, {}, "", false},
        Check{"WantsToDownload",
              {false, true},
              {},
              {kNoRenderMan, kVisit},
              {std::to_string(static_cast<int>(WebSite::RenderMan))},
              "",
              false},
        Check{"WillNotSelect", {true, false}, {}, {kNoRenderMan, kSelect}, {}, "", false},
        Check{"ChooserCancelled", {true, true}, {}, {kNoRenderMan, kSelect}, {}, "", false},
        Check{"ChoseNoProgram",
              {true, true},
              {"/etc/passwd"},
              {kNoRenderMan, kSelect},
              {},
              "",
              false},
        Check{"ChoseAProgram",
              {true, true},
              {"/bin/sh"},
              {kNoRenderMan, kSelect},
              {},
              "/bin/sh",
              true}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(RaytracerCheck, AKnownRendererIsNotAskedFor)
{
    ControlRig rig;
    rig.Start();
    rig.host.applicationState.raytracer = CorvexDB::Raytracer::RenderMan;
    rig.platform.settings.Put("RenderManLocation", "/opt/my renderer");
    rig.Press("cmdPreview");
    EXPECT_EQ(rig.log.CountOf("Prompts.AskYesNo"), 0U);
    ASSERT_EQ(rig.platform.processes.requests.size(), 1U);
    EXPECT_EQ(rig.platform.processes.requests.front().program, "/opt/my renderer");
    EXPECT_EQ(rig.platform.processes.requests.front().arguments,
              (std::vector<std::string>{"-res", "256", "256", "/temporary/~CVX1.rib"}));
    EXPECT_TRUE(rig.platform.temporaryFiles.written.empty());
}

TEST(RaytracerCheck, AMissingPovRayIsExplainedAndNothingRuns)
{
    for (const bool visit : {false, true}) {
        ControlRig rig;
        rig.Start();
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

TEST(RaytracerCheck, AStoreThatCannotBeWrittenKeepsNothingFromRendering)
{
    for (const auto raytracer : {CorvexDB::Raytracer::PovRay, CorvexDB::Raytracer::RenderMan}) {
        ControlRig rig;
        rig.Start();
        rig.host.applicationState.raytracer = raytracer;
        rig.platform.prompts.answers = {true, true};
        rig.platform.choosers.files = {"/bin/sh"};
        rig.log.FailEach("Store.Flush", Fault::ClassifiedError);
        const DialogAnswer hint([](QDialog& dialog) {
            EXPECT_TRUE(
                dialog.findChild<QLabel*>("lblWarning")->text().startsWith("Please ensure"));
            Click(*dialog.findChild<QAbstractButton*>("cmdOK"));
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
