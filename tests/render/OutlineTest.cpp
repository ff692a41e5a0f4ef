#include "Drawing.h"

using namespace drawing;

namespace {

bool IsOrange(QRgb pixel)
{
    return qRed(pixel) > 200 && qGreen(pixel) > 90 && qGreen(pixel) < 180 && qBlue(pixel) < 80;
}

class Outline : public testing::TestWithParam<int> {
protected:
    QImage DrawOne(bool selected, int transparency, int alphaTest)
    {
        Material material = Glowing(CorvexMaterial::MakeColour({80, 80, 200}), transparency);
        material.AlphaTest = alphaTest;
        studio::Frame frame = FrameOf({Item(Square(), material)});
        frame.samples = GetParam();
        frame.items[0].selected = selected;
        return Draw(frame);
    }
};

TEST_P(Outline, RunsAroundTheShapeAndLeavesItAlone)
{
    for (const int transparency : {0, 60}) {
        const QImage plain = DrawOne(false, transparency, 0);
        const QImage selected = DrawOne(true, transparency, 0);
        // The square covers the pixels 16 to 47.
        const QRect shape(16, 16, 32, 32);
        EXPECT_EQ(Difference(selected.copy(shape), plain.copy(shape)), 0);
        for (const QPoint& point : {QPoint(15, 32), QPoint(14, 20), QPoint(48, 32), QPoint(49, 40),
                                    QPoint(32, 15), QPoint(32, 48)}) {
            EXPECT_TRUE(IsOrange(selected.pixel(point))) << point.x() << ',' << point.y();
        }
        EXPECT_EQ(selected.pixel(32, 11), plain.pixel(32, 11));
        EXPECT_EQ(selected.pixel(11, 32), plain.pixel(11, 32));
    }
}

TEST_P(Outline, OfATargetFadesAndLeavesItAlone)
{
    studio::Frame frame = FrameOf({Item(Square(), Glowing(0x404040))});
    frame.samples = GetParam();
    const QImage plain = Draw(frame);
    frame.items[0].target = true;
    const QImage glowing = Draw(frame);
    const QRect shape(16, 16, 32, 32);
    EXPECT_EQ(Difference(glowing.copy(shape), plain.copy(shape)), 0);
    EXPECT_GT(qBlue(glowing.pixel(15, 32)), 200);
    EXPECT_LT(qBlue(glowing.pixel(11, 32)), qBlue(glowing.pixel(15, 32)));
    EXPECT_GT(qBlue(glowing.pixel(11, 32)), qBlue(plain.pixel(11, 32)));
}

TEST_P(Outline, NothingThatIsDrawnNothingIsOutlined)
{
    constexpr int kEqual = 2;
    EXPECT_EQ(Difference(DrawOne(true, 50, kEqual), DrawOne(false, 50, kEqual)), 0);
}

TEST_P(Outline, ShowsThroughWhatHidesTheShape)
{
    studio::Frame frame = FrameOf({Item(Square(), Glowing(0x404040), Moved(0, 0, 1)),
                                   Item(Ball(), Glowing(0xFF0000), Moved(0, 0, -1))});
    frame.samples = GetParam();
    frame.items[1].selected = true;
    const QImage picture = Draw(frame);
    int orange = 0;
    for (int x = 0; x < 32; ++x) {
        orange += IsOrange(picture.pixel(x, 32)) ? 1 : 0;
    }
    EXPECT_GE(orange, 1);
    EXPECT_LE(orange, 3);
}

INSTANTIATE_TEST_SUITE_P(Samples, Outline, testing::Values(1, 4));

}  // namespace
