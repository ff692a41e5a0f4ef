#include "Drawing.h"
#include "GlContext.h"
#include "Renderer.h"
#include <CorvexMaterial/Status.h>

using namespace drawing;

namespace {

/// The middle of all pixels that are not black.
QPointF MiddleOf(const QImage& picture)
{
    const auto pixels = PixelsOf(picture);
    QPointF sum;
    int count = 0;
    for (int i = 0; i < static_cast<int>(pixels.size()); ++i) {
        if (pixels[static_cast<std::size_t>(i)] != kBlack) {
            sum += QPointF(i % picture.width() + 0.5, i / picture.width() + 0.5);
            ++count;
        }
    }
    return sum / count;
}

TEST(Picture, RayThroughAPixelMeetsWhatIsDrawnThere)
{
    const QVector3D place(0.4F, 0.9F, -0.3F);
    QMatrix4x4 small;
    small.translate(place);
    small.scale(0.05F);
    for (const QSize size : {QSize(300, 200), QSize(150, 260)}) {
        studio::Frame frame = FrameOf({Item(Ball(), Glowing(0xFFFFFF), small)});
        frame.width = size.width();
        frame.height = size.height();
        frame.camera = studio::Camera{{0.1F, 0.2F, 0.0F}, 130.0F, 35.0F, 5.0F, 40.0F};
        const studio::Ray ray = frame.camera.RayThrough(MiddleOf(Draw(frame)), size);
        EXPECT_LT(place.distanceToLine(ray.origin, ray.direction), 0.02F);
    }
}

TEST(Picture, FramingFillsTheSmallerSide)
{
    studio::Frame frame = FrameOf({Item(Ball(), Glowing(0xFFFFFF), Moved(30, 0, 5))});
    frame.width = 200;
    frame.camera = studio::Framed(studio::Camera(), frame.items);
    const QImage picture = Draw(frame);
    EXPECT_EQ(picture.pixel(100, 32), kWhite);
    EXPECT_EQ(picture.pixel(100, 0), kBlack);
    EXPECT_GT(CountOf(picture, kWhite), 64 * 64 / 5);
}

TEST(Picture, FourSamplesSmoothAnEdgeInLinearLight)
{
    // The edge runs through the middle of a pixel column: half white, half black light.
    studio::Frame frame = FrameOf({Item(Square(), Glowing(0xFFFFFF), Moved(1.0F / 32.0F, 0, 0))});
    frame.samples = 4;
    EXPECT_NEAR(qGreen(Draw(frame).pixel(16, 32)), 188, 1);
    EXPECT_EQ(Draw(frame).pixel(17, 32), kWhite);
    EXPECT_EQ(Draw(frame).pixel(15, 32), kBlack);
}

TEST(Picture, BackdropIsTheBackgroundOrAQuietGradient)
{
    studio::Frame frame = FrameOf({});
    frame.background = CorvexMaterial::MakeColour({90, 120, 30});
    EXPECT_EQ(CountOf(Draw(frame), qRgb(90, 120, 30)), 64 * 64);
    frame.backdrop = studio::Backdrop::Gradient;
    const QImage gradient = Draw(frame);
    EXPECT_GT(qGreen(gradient.pixel(32, 0)), 120);
    EXPECT_LT(qGreen(gradient.pixel(32, 63)), 120);
    EXPECT_LT(qGreen(gradient.pixel(32, 0)) - qGreen(gradient.pixel(32, 63)), 60);
}

TEST(Picture, BrokenItemsDrawNothingAndHarmNothing)
{
    QMatrix4x4 broken;
    broken.scale(std::numeric_limits<float>::quiet_NaN());
    QMatrix4x4 flat;
    flat.scale(0.0F);
    studio::Vertex corner;
    const auto outside = studio::MakeMesh({corner, corner, corner}, {0, 1, 3, 0, 1});
    EXPECT_TRUE(outside->indices.empty());
    const QImage picture =
        Draw({Item(nullptr, {}), Item(studio::MakeMesh({}, {}), {}), Item(outside, {}),
              Item(Square(), Glowing(0x0000FF, 50), flat), Item(Square(), Glowing(0xFFFFFF))});
    EXPECT_EQ(Difference(picture, DrawSquare(Glowing(0xFFFFFF))), 0);
    EXPECT_EQ(Draw({Item(Square(), Glowing(0xFFFFFF, 50), broken)}).size(), QSize(64, 64));
    EXPECT_EQ(Draw({{Square(), nullptr, {}, false}}).pixel(0, 0), kBlack);
}

TEST(Picture, RefusedSizeLeavesTheRendererUsable)
{
    studio::Renderer renderer(studio::MakeGlContextProvider()->Create());
    studio::Frame frame = FrameOf({Item(Square(), Glowing(0xFFFFFF))});
    for (const int width : {0, -5, 100000}) {
        frame.width = width;
        try {
            (void)renderer.Draw(frame);
            ADD_FAILURE() << width;
        } catch (const CorvexMaterial::Error& error) {
            EXPECT_EQ(error.Code(), CorvexMaterial::Status::InvalidArgument);
        }
    }
    frame.width = 1;
    EXPECT_EQ(renderer.Draw(frame).size(), QSize(1, 64));
}

TEST(Picture, ManySizesAndMeshesThroughOneRenderer)
{
    studio::Renderer renderer(studio::MakeGlContextProvider()->Create());
    const studio::Frame first = FrameOf({Item(Ball(), {}), Item(Square(), Glowing(0xFF, 50))});
    const QImage expected = renderer.Draw(first);
    for (int i = 0; i < 12; ++i) {
        studio::Frame other = FrameOf({Item(Ball(), {}), Item(Ball(), Glowing(0xFF, 20))});
        other.width = 40 + 7 * i;
        other.samples = i % 2 == 0 ? 1 : 4;
        EXPECT_EQ(renderer.Draw(other).width(), other.width);
    }
    EXPECT_EQ(Difference(renderer.Draw(first), expected), 0);
}

}  // namespace
