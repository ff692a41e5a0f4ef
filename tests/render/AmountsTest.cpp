#include "Drawing.h"

#include <climits>

using namespace drawing;

namespace {

QImage BallWith(int Material::*amount, int percent)
{
    Material material;
    material.*amount = percent;
    return DrawBall(material);
}

TEST(Amounts, DefaultMaterialIsShapedAndNotBurntOut)
{
    const Range white = BrightnessOf(DrawBall({}));
    EXPECT_GT(white.brightest, 225);
    EXPECT_LT(white.brightest, 253);
    EXPECT_GT(white.darkest, 90);
    EXPECT_LT(white.darkest, 160);
}

TEST(Amounts, AmbientLiftsTheShadowsOnly)
{
    Range before{0, 0};
    for (const int percent : {0, 20, 40, 60, 80, 100}) {
        const Range now = BrightnessOf(BallWith(&Material::Ambient, percent));
        EXPECT_GT(now.darkest, before.darkest) << percent;
        EXPECT_LT(now.brightest, 254) << percent;
        before = now;
    }
    EXPECT_GT(before.brightest - before.darkest, 15);  // still a ball
}

TEST(Amounts, EmissiveEndsInTheBareColour)
{
    Range before{0, 0};
    for (const int percent : {0, 25, 50, 75, 100}) {
        const Range now = BrightnessOf(BallWith(&Material::Emissive, percent));
        EXPECT_GT(now.darkest, before.darkest) << percent;
        before = now;
    }
    const QImage glowing = DrawBall(Glowing(CorvexMaterial::MakeColour({200, 100, 40})));
    EXPECT_GT(CountOf(glowing, qRgb(200, 100, 40)), 700);
    EXPECT_EQ(CountOf(glowing, qRgb(200, 100, 40)) + CountOf(glowing, kBlack), 64 * 64);
}

TEST(Amounts, SpecularMakesASmallBrightHighlight)
{
    Material red;
    red.Color = CorvexMaterial::MakeColour({180, 30, 30});
    int before = BrightnessOf(DrawBall(red)).brightest;
    for (const int percent : {25, 50, 75, 100}) {
        red.Specular = percent;
        const int now = BrightnessOf(DrawBall(red)).brightest;
        EXPECT_GT(now, before) << percent;
        before = now;
    }
    EXPECT_GT(before, 220);
    const auto bright = std::ranges::count_if(PixelsOf(DrawBall(red)),
                                              [](QRgb pixel) { return qGray(pixel) > 120; });
    EXPECT_GT(bright, 5);
    EXPECT_LT(bright, 120);
}

TEST(Amounts, FullTransparencyLeavesTheHighlightAlone)
{
    Material glass;
    glass.Transparency = 100;
    EXPECT_EQ(CountOf(DrawBall(glass), kBlack), 64 * 64);
    glass.Specular = 100;
    const QImage picture = DrawBall(glass);
    EXPECT_GT(BrightnessOf(picture).brightest, 220);
    EXPECT_GT(CountOf(picture, kBlack), 64 * 64 * 8 / 10);
}

TEST(Amounts, OutOfRangeIsCutToTheNearestEnd)
{
    for (int Material::*amount :
         {&Material::Ambient, &Material::Emissive, &Material::Specular, &Material::Transparency}) {
        EXPECT_EQ(Difference(BallWith(amount, INT_MIN), BallWith(amount, 0)), 0);
        EXPECT_EQ(Difference(BallWith(amount, INT_MAX), BallWith(amount, 100)), 0);
    }
}

}  // namespace
