#include "CommaLocale.h"
#include "CropFit.h"
#include "CropGrip.h"
#include "TexturePlacement.h"
#include <CorvexMaterial/NumberText.h>

namespace {

using namespace CorvexMaterial;
using ::testing::FieldsAre;

TEST(NumberFormatting, RoundsTheWrittenNumberHalfAwayFromZero)
{
    struct Row {
        float value;
        const char* fraction;
        const char* tiles;
    };
    constexpr float kNothing = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const Row& row : std::initializer_list<Row>{{0.0F, "0.0", "0.00"},
                                                     {1.0F, "1.0", "1.00"},
                                                     {0.125F, "0.125", "0.13"},
                                                     {0.12345F, "0.1235", "0.12"},
                                                     {0.00015F, "0.0002", "0.00"},
                                                     {0.005F, "0.005", "0.01"},
                                                     {-0.00004F, "0.0", "0.00"},
                                                     {-0.00005F, "-0.0001", "0.00"},
                                                     {-0.125F, "-0.125", "-0.13"},
                                                     {0.99996F, "1.0", "1.00"},
                                                     {9.99995F, "10.0", "10.00"},
                                                     {999.995F, "999.995", "1000.00"},
                                                     {1e-30F, "0.0", "0.00"},
                                                     {-0.0F, "0.0", "0.00"},
                                                     {kNothing, "0.0", "0.00"},
                                                     {-kInfinity, "0.0", "0.00"}}) {
        EXPECT_EQ(TextOfFraction(row.value), row.fraction);
        EXPECT_EQ(TextOfTiles(row.value), row.tiles);
    }
}

TEST(NumberFormatting, KeepsThePointUnderACommaLocale)
{
    const CorvexTest::CommaLocale commas;
    const CorvexDB::TexturePlacement placement{0.25F, 0.5F, 0.125F, 0.0625F};
    EXPECT_EQ(TextsOf(placement), (CropTexts{"0.25", "0.5", "0.125", "0.0625"}));
    EXPECT_EQ(PlacementOf(TextsOf(placement)), placement);
}

constexpr PictureSize kSquare{514, 514};

TEST(CropDrag, StartsAtThePixelBelowTheBorder)
{
    EXPECT_EQ(StartDrag({257, 129}, kSquare), (CropTexts{"0.5", "0.25", "0.0", "0.0"}));
    // 3 / 512 is past half a percent, 2 / 512 is not; before the border is below it as well.
    EXPECT_EQ(StartDrag({4, 3}, kSquare), (CropTexts{"0.0059", "0.0", "0.0", "0.0"}));
    EXPECT_EQ(StartDrag({-20, 0}, kSquare), (CropTexts{"0.0", "0.0", "0.0", "0.0"}));
    // Exactly half a percent is kept.
    EXPECT_EQ(StartDrag({2, 2}, {202, 202}).originLeft, "0.005");
    // Past the image nothing is clamped but the sum, once there is an extent.
    EXPECT_EQ(StartDrag({577, 1}, kSquare).originLeft, "1.125");
}

TEST(CropDrag, ReachesFromTheOriginEitherWay)
{
    const CropTexts start = StartDrag({257, 257}, kSquare);
    EXPECT_EQ(MoveDrag(start, {385, 321}, kSquare), (CropTexts{"0.5", "0.5", "0.25", "0.125"}));
    EXPECT_EQ(MoveDrag(start, {129, 257}, kSquare).scaleWidth, "-0.25");
    EXPECT_EQ(MoveDrag(start, {9000, 600}, kSquare), (CropTexts{"0.5", "0.5", "0.5", "0.5"}));
}

TEST(CropDrag, NeverReachesPastTheImage)
{
    for (int from = -3; from <= 517; from += 7) {
        const double origin = from;
        for (int to = -3; to <= 600; to += 11) {
            const double end = to;
            const auto placement =
                PlacementOf(MoveDrag(StartDrag({origin, origin}, kSquare), {end, end}, kSquare));
            ASSERT_TRUE(placement);
            ASSERT_LE(placement->originU + placement->scaleU, 1.0F + 1e-6F) << from << " " << to;
        }
    }
}

TEST(CropDrag, SurvivesAPictureWithoutAnInside)
{
    for (const double extent : {0.0, 1.0, 2.0, 3.0}) {
        const auto placement =
            PlacementOf(MoveDrag(StartDrag({1, 1}, {extent, extent}), {2, 2}, {extent, extent}));
        ASSERT_TRUE(placement) << extent;
        EXPECT_TRUE(std::isfinite(placement->scaleU));
    }
}

TEST(CropClamp, ShortensOnlyWhatReachesPastTheEnd)
{
    EXPECT_EQ(Clamped({"0.3", "0.25", "0.9", "2"}), (CropTexts{"0.3", "0.25", "0.7", "0.75"}));
    const CropTexts inside{"0.25", "-1", "0.750", "1.5"};
    EXPECT_EQ(Clamped(inside), inside);
    const CropTexts noNumbers{"a", "0.5", "1.0", "0,9"};
    EXPECT_EQ(Clamped(noNumbers), noNumbers);
    EXPECT_FALSE(PlacementOf(noNumbers));
}

TEST(CropPictureFit, FillsTheAreaWithTheLongerSide)
{
    struct Row {
        int imageWidth;
        int imageHeight;
        CropFit fit;
    };
    for (const auto& [width, height, expected] :
         std::initializer_list<Row>{{512, 512, {514, 514, true, true}},
                                    {510, 255, {514, 257, true, false}},
                                    {1028, 257, {514, 129, true, true}},
                                    {100, 1000, {51, 514, true, true}},
                                    {514, 1, {514, 1, true, true}},
                                    {1, 515, {514, 514, false, true}},
                                    {1, 1, {514, 514, true, false}},
                                    {0, 0, {514, 514, true, true}},
                                    {-1, 80, {514, 514, true, true}}}) {
        const CropFit fit = FitIntoCropArea(width, height);
        EXPECT_THAT(fit, FieldsAre(expected.width, expected.height, expected.proportionsKept,
                                   expected.smooth))
            << width << " by " << height;
    }
}

TEST(CropGripping, FindsSidesThenTheInside)
{
    const CropRect rect{0.2, 0.2, 0.6, 0.8};
    const PicturePoint reach{0.01, 0.01};
    EXPECT_EQ(GripAt(rect, {0.205, 0.795}, reach), (CropGrip{true, false, false, true}));
    EXPECT_EQ(GripAt(rect, {0.6, 0.5}, reach), (CropGrip{false, false, true, false}));
    EXPECT_TRUE(GripAt(rect, {0.4, 0.4}, reach).HoldsAll());
    // In line with a side but beyond its end.
    EXPECT_FALSE(GripAt(rect, {0.2, 0.9}, reach).HoldsAnything());
    // Both sides of a sliver are within reach.
    EXPECT_EQ(GripAt({0.5, 0.0, 0.505, 1.0}, {0.504, 0.5}, reach),
              (CropGrip{false, false, true, false}));
}

TEST(CropGripping, StaysOnTheImage)
{
    const CropRect rect{0.2, 0.2, 0.6, 0.8};
    const CropGrip all{true, true, true, true};
    EXPECT_EQ(TextsOf(Pulled(rect, all, {0.1, -0.1})), (CropTexts{"0.3", "0.1", "0.4", "0.6"}));
    EXPECT_EQ(TextsOf(Pulled(rect, all, {5, -5})), (CropTexts{"0.6", "0.0", "0.4", "0.6"}));
    const CropGrip left{true, false, false, false};
    EXPECT_EQ(TextsOf(Pulled(rect, left, {-0.5, 0.3})), (CropTexts{"0.0", "0.2", "0.6", "0.6"}));
    // A side pulled across the other one turns the rectangle over.
    EXPECT_EQ(TextsOf(Pulled(rect, left, {0.6, 0})), (CropTexts{"0.6", "0.2", "0.2", "0.6"}));
}

TEST(CropGripping, TakesAMirroredPlacementInOrder)
{
    const CropRect rect = RectOf({0.75F, 0.25F, -0.5F, 0.5F});
    EXPECT_EQ(TextsOf(rect), (CropTexts{"0.25", "0.25", "0.5", "0.5"}));
}

}  // namespace
