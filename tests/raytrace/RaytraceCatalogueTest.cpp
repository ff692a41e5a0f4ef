#include "JobEnd.h"
#include "PatternColours.h"
#include "RaytraceAmounts.h"
#include "RenderProgress.h"
#include "TextureRules.h"
#include <CorvexMaterial/SimulationTexture.h>

namespace {

using namespace CorvexMaterial;

TEST(RaytraceAmounts, StayInsideTheirSlidersWhateverWasStored)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    for (const RaytraceAmount& amount : kRaytraceAmounts) {
        EXPECT_EQ(PositionOf(amount, -3.0F), RowOf(amount.attribute).range.least) << amount.slider;
        EXPECT_EQ(PositionOf(amount, infinity), 10) << amount.slider;
        EXPECT_EQ(PositionOf(amount, 6.6F), 7) << amount.slider;
        EXPECT_EQ(PositionOf(amount, nan), DefaultPositionOf(amount)) << amount.slider;
    }
}

TEST(PatternColours, EveryByteComesBackAndAlphaIsNeverTouched)
{
    CorvexDB::PatternColour stored;
    stored.alpha = 0.25F;
    for (int byte = 0; byte < 256; ++byte) {
        const Colour colour = MakeColour({byte, 255 - byte, byte / 2});
        StoreFractions(stored, colour);
        EXPECT_EQ(ColourOfFractions(stored), colour);
    }
    EXPECT_EQ(stored.red, 1.0F);
    EXPECT_EQ(stored.alpha, 0.25F);
    EXPECT_EQ(ColourOfFractions({7.0F, -2.0F, std::nanf(""), 0.0F}), MakeColour({255, 0, 0}));
}

TEST(TextureRules, TheTwoRaytracersWantOppositeFiles)
{
    const auto povRay = [](const std::vector<std::string>& files) {
        return TexturesFit(TiffRule::NoTiff, files);
    };
    const auto renderMan = [](const std::vector<std::string>& files) {
        return TexturesFit(TiffRule::OnlyTiff, files);
    };
    EXPECT_TRUE(povRay({}) && renderMan({}) && povRay({""}) && renderMan({""}));
    EXPECT_TRUE(povRay({"/a/b.png", "/tif", "/a.tif/b"}));
    EXPECT_FALSE(povRay({"/a/b.png", "/a/c.TiF"}));
    EXPECT_TRUE(renderMan({"/a/b.TIF", "/c.tiff"}));
    EXPECT_FALSE(renderMan({"/a/b.tif", "/c.tif.jpg"}));
}

TEST(RenderProgress, FollowsTheLastCountInAnyPieces)
{
    RenderProgress progress;
    EXPECT_FALSE(progress.Percent());
    const std::string printed = "Parsing\rRendered 10 of 200 pixels (5%)\rRendered 150 of 200 "
                                "pixels (75%)\r\nError: no <light>\nhalf";
    for (const char letter : printed) {
        progress.Feed(std::string_view(&letter, 1));
    }
    EXPECT_EQ(progress.Percent(), 75);
    EXPECT_EQ(progress.Messages(), "Parsing\nError: no <light>\nhalf");
    for (const char* nonsense :
         {"Rendered 1 of 2 pixels (x%)\n", "Rendered 1 of 2 pixels (7\n", "Rendered pixels (\n",
          "pixels (50%) Rendered\n", "Rendered 1 of 2 pixels (99999999999%)\n"}) {
        progress.Feed(nonsense);
        EXPECT_TRUE(progress.Percent() == 75 || progress.Percent() == 50) << nonsense;
    }
    progress.Feed("Rendered 300 of 200 pixels (150%)\r");
    EXPECT_EQ(progress.Percent(), 100);
}

TEST(JobEnd, WordsAreCutInWholeLetters)
{
    JobEnd end;
    end.exitCode = 1;
    end.messages = std::string(599, 'x') + "\xC3\xA4";
    EXPECT_THAT(FailureOf(end), testing::EndsWith("xxx..."));
}

TEST(RenderProgress, KeepsTheEndOfEndlessOutput)
{
    RenderProgress progress;
    for (int line = 0; line < 100000; ++line) {
        progress.Feed("line " + std::to_string(line) + "\n");
    }
    progress.Feed(std::string(1000000, 'x'));
    EXPECT_LT(progress.Messages().size(), 30000U);
    EXPECT_NE(progress.Messages().find("line 99999\n"), std::string::npos);
}

TEST(SimulationTexture, IsKnownByItsNameWhereverItLies)
{
    EXPECT_TRUE(IsSimulationTexture("/tmp/~CVX17.jpg"));
    EXPECT_TRUE(IsSimulationTexture("~CVX17 (2).jpg"));
    for (const char* other : {"", "/tmp/~CVX17.png", "/~CVX1.jpg/wood.jpg", "/tmp/x~CVX1.jpg"}) {
        EXPECT_FALSE(IsSimulationTexture(other)) << other;
    }
}

}  // namespace
