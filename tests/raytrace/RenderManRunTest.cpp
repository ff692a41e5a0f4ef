// Scripts in place of a RenderMan renderer, run as a user runs them: what differs from POV-Ray.

#include "FakeRaytracer.h"
#include "RaytraceMessages.h"
#include "Testing.h"

#include <QAbstractButton>

namespace {

using namespace CorvexTest;
using namespace CorvexMaterial;

struct Script {
    const char* name;
    const char* commands;
    const char* told = nullptr;  ///< part of the details; null when the picture is shown
};

class RenderMan : public ::testing::TestWithParam<Script> {};

TEST_P(RenderMan, IsJudgedByItsImageAndItsWords)
{
    const Script& run = GetParam();
    const QString workingFolder = QDir::currentPath();
    ControlRig rig;
    rig.Start();
    FakeRaytracer raytracer(rig);
    raytracer.RunsAsRenderMan(QString::fromUtf8(run.commands));
    rig.Press("cmdPreview");
    EXPECT_EQ(rig.log.CountOf("Viewport.ShowBitmap"), run.told ? 0U : 1U);
    ASSERT_EQ(rig.platform.prompts.shown.size(), run.told ? 1U : 0U);
    if (run.told) {
        EXPECT_EQ(rig.platform.prompts.shown[0].text, kRaytracerFailed);
        EXPECT_THAT(rig.platform.prompts.shown[0].details, ::testing::HasSubstr(run.told));
    }
    EXPECT_EQ(raytracer.Leftovers(), QStringList());
    EXPECT_EQ(QDir::currentPath(), workingFolder);
    EXPECT_TRUE(rig.Find<QAbstractButton>("cmdPreview").isEnabled());
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, RenderMan,
    ::testing::Values(
        Script{"Renders", "[ -f \"$scene\" ] && cp \"$picture\" \"$out\""},
        Script{"RendersWhereItWorks", "cp \"$picture\" \"${out##*/}\""},
        Script{"Warns", "cp \"$picture\" \"$out\"; echo 'R7 {WARNING} dull' >&2; echo 'ERRORS=0'"},
        Script{"ErrsWithAnImage", "cp \"$picture\" \"$out\"; echo 'R12 {ERROR} no shader \"x\"'",
               "an error. It says: R12 {ERROR} no shader \"x\""},
        Script{"ErrsAndGoesOnTalking",
               "cp \"$picture\" \"$out\"; echo '3DL SEVERE: no memory' >&2; seq 9000",
               "It says: 3DL SEVERE: no memory"},
        Script{"ErrsInItsLastLine", "cp \"$picture\" \"$out\"; printf 'Error: no licence'",
               "It says: Error: no licence"}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
