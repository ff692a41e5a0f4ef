#include "Drawing.h"
#include "Images.h"
#include "TextureCache.h"

using namespace drawing;

namespace {

constexpr QColor kClearWhite(255, 255, 255, 0);

QRgb MiddleOf(const Material& material)
{
    return DrawSquare(material).pixel(30, 34);
}

Material WithPrimary(const std::string& file)
{
    Material material = Glowing(CorvexMaterial::kWhite);
    material.Textures.primary = file;
    return material;
}

/// In grey, of this light.
void ExpectLight(QRgb seen, double light)
{
    ExpectNear(seen, qRgb(Encoded(light), Encoded(light), Encoded(light)), 2);
}

TEST(PrimaryTexture, IsUprightAndMultipliesTheColour)
{
    Material material = WithPrimary(WriteImage("four.png", FourColours()));
    const QImage picture = DrawSquare(material);
    EXPECT_EQ(picture.pixel(20, 20), qRgb(255, 0, 0));
    EXPECT_EQ(picture.pixel(44, 20), qRgb(0, 255, 0));
    EXPECT_EQ(picture.pixel(20, 44), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(44, 44), qRgb(255, 255, 255));

    material.Textures.primary = WriteImage("gray.png", Plain({188, 188, 188}));
    ExpectNear(MiddleOf(material), qRgb(188, 188, 188), 1);
    material.Color = CorvexMaterial::MakeColour({188, 255, 0});
    ExpectNear(MiddleOf(material), qRgb(Encoded(0.503 * 0.503), 188, 0), 2);
}

TEST(PrimaryTexture, OfOneShapeIsNotThatOfTheNext)
{
    std::vector<studio::FrameItem> items;
    for (const auto& [x, colour] : {std::pair{-0.5F, Qt::red}, {0.5F, Qt::green}}) {
        Material material = Glowing(CorvexMaterial::kWhite);
        material.Textures.primary = WriteImage(x < 0.0F ? "a.png" : "b.png", Plain(colour));
        QMatrix4x4 half = Moved(x, 0, 0);
        half.scale(0.5F, 1.0F, 1.0F);
        items.push_back(Item(Square(), material, half));
    }
    const QImage picture = Draw(items);
    EXPECT_EQ(QColor(picture.pixel(25, 32)), QColor(Qt::red));
    EXPECT_EQ(QColor(picture.pixel(39, 32)), QColor(Qt::green));
}

TEST(PrimaryTexture, FileThatCannotBeReadShowsThePlaceholder)
{
    const QImage picture = Draw({Item(Square(), WithPrimary("/nowhere/at/all.png"))});
    EXPECT_GT(CountOf(picture, qRgb(255, 0, 255)), 100);
    EXPECT_GT(CountOf(picture, qRgb(48, 48, 48)), 100);
}

TEST(PrimaryAlpha, MeansWhatItsUseSays)
{
    const std::string quarter = WriteImage("quarter.png", Plain({255, 255, 255, 64}));
    Material material = WithPrimary(quarter);
    ExpectLight(MiddleOf(material), 0.25);
    material.AlphaIsTransparent = true;
    ExpectLight(MiddleOf(material), 0.75);
    for (const int use : {1, 2, 3, 4, 17}) {
        material.TextureAlphaChannelUse = use;
        EXPECT_EQ(MiddleOf(material), 0xFFFFFFFF) << use;
    }
    // Without an alpha channel there is nothing to turn round.
    material = WithPrimary(WriteImage("opaque.png", Plain(Qt::white)));
    material.AlphaIsTransparent = true;
    EXPECT_EQ(MiddleOf(material), 0xFFFFFFFF);
}

TEST(PrimaryAlpha, IsWhatTheAlphaTestCompares)
{
    Material material = WithPrimary(WriteImage("half.png", Plain({255, 255, 255, 128})));
    material.Transparency = 50;
    material.Textures.alpha = WriteImage("white.png", Plain(Qt::white));
    material.AlphaTest = 4;  // greater
    material.AlphaTestReference = 66;
    EXPECT_EQ(MiddleOf(material), kBlack);
    material.AlphaTestReference = 62;
    EXPECT_NE(MiddleOf(material), kBlack);
}

TEST(PrimaryAlpha, HolesShowWhatIsBehindWithoutAHighlight)
{
    Material leaf = WithPrimary(WriteImage("hole.png", Plain(kClearWhite)));
    leaf.Specular = 100;
    EXPECT_EQ(CountOf(DrawBall(leaf), kBlack), 64 * 64);
    const Material red = Glowing(CorvexMaterial::MakeColour({255, 0, 0}));
    EXPECT_EQ(Draw({Item(Square(), red, Moved(0, 0, -0.5F)), Item(Square(), leaf)}).pixel(32, 32),
              qRgb(255, 0, 0));
}

TEST(OverlayTexture, CoversByItsAlphaAndTheTranslucency)
{
    Material material = WithPrimary(WriteImage("blue.png", Plain(Qt::blue)));
    material.Textures.overlay = WriteImage("red.png", Plain(Qt::red));
    const auto expect = [&](float translucency, double redLight) {
        material.OverlayTranslucency = translucency;
        ExpectNear(MiddleOf(material), qRgb(Encoded(redLight), 0, Encoded(1.0 - redLight)), 2);
    };
    expect(0.0F, 1.0);
    expect(100.0F, 0.0);
    expect(25.0F, 0.75);
    expect(-40.0F, 1.0);
    material.Textures.overlay = WriteImage("red-half.png", Plain({255, 0, 0, 128}));
    expect(0.0F, 0.5);
    expect(50.0F, 0.25);
}

TEST(AlphaMap, LuminanceIsOpacity)
{
    Material material = Glowing(CorvexMaterial::kWhite);
    material.Textures.alpha = WriteImage("green.png", Plain(QColor(0, 255, 0)));
    ExpectLight(MiddleOf(material), 0.7152);
    material.Textures.alpha = WriteImage("dark.png", Plain({51, 51, 51}));
    ExpectLight(MiddleOf(material), 0.2);
}

/// The height of four valleys from left to right.
int ValleyAt(double x)
{
    return static_cast<int>(
        std::lround(255.0 * std::abs(2.0 * (4.0 * x - std::floor(4.0 * x)) - 1.0)));
}

QImage Valleys(int side)
{
    return ImageOf(side,
                   [](double x, double) { return QColor(ValleyAt(x), ValleyAt(x), ValleyAt(x)); });
}

TEST(BumpMap, SlopesAreLitFromTheirSide)
{
    // The key light comes from the left, so a slope that rises to the right is lighter.
    Material material;
    material.Emissive = material.Ambient = 0;
    const int flat = qGray(MiddleOf(material));
    material.Textures.bump = WriteImage("valleys.png", Valleys(256));
    const QImage picture = DrawSquare(material);
    const int falling = qGray(picture.pixel(34, 32));
    EXPECT_GT(qGray(picture.pixel(37, 32)), flat + 4);
    EXPECT_LT(falling, flat - 8);

    // It is a real normal: the same as a square that is inclined by the slope.
    const double slope = 8.0 * 0.03;
    const QMatrix4x4 inclined =
        TurnedAboutY(static_cast<float>(std::atan(slope) * 180.0 / 3.14159265));
    material.Textures.bump.clear();
    EXPECT_NEAR(falling, qGray(Draw({Item(Square(), material, inclined)}).pixel(32, 32)), 2);
}

TEST(BumpMap, DependsNeitherOnResolutionNorOnScale)
{
    Material material;
    material.Textures.bump = WriteImage("valleys256.png", Valleys(256));
    const QImage fine = DrawSquare(material);
    material.Textures.bump = WriteImage("valleys64.png", Valleys(64));
    const QImage coarse = DrawSquare(material);
    studio::Frame far = FrameOf({Item(Square(), material)});
    far.items[0].worldFromMesh.scale(10.0F);
    far.camera.distance *= 10.0F;
    const QImage large = Draw(far);
    for (const int x : {18, 21, 26, 29, 34, 37}) {
        EXPECT_NEAR(qGray(fine.pixel(x, 32)), qGray(coarse.pixel(x, 32)), 3) << x;
        EXPECT_NEAR(qGray(large.pixel(x, 32)), qGray(coarse.pixel(x, 32)), 2) << x;
    }
}

TEST(BumpMap, PrimaryAlphaDoesTheSame)
{
    Material material;
    material.Textures.bump = WriteImage("valleys.png", Valleys(256));
    const QImage fromMap = DrawSquare(material);
    material.Textures.bump.clear();
    material.Textures.primary = WriteImage("valleys-alpha.png", ImageOf(256, [](double x, double) {
                                               return QColor(255, 255, 255, ValleyAt(x));
                                           }));
    material.TextureAlphaChannelUse = 2;
    EXPECT_LE(Difference(DrawSquare(material), fromMap), 2);
}

TEST(SpecularMap, ScalesTheHighlightAndDecidesAloneAtZero)
{
    Material material;
    material.Color = CorvexMaterial::MakeColour({120, 20, 20});
    const QImage dull = DrawBall(material);
    material.Specular = 100;
    const QImage glossy = DrawBall(material);
    material.Textures.specular = WriteImage("white.png", Plain(Qt::white));
    EXPECT_LE(Difference(DrawBall(material), glossy), 1);
    material.Specular = 0;
    EXPECT_LE(Difference(DrawBall(material), glossy), 1);
    material.Textures.specular = WriteImage("black.png", Plain(Qt::black));
    EXPECT_LE(Difference(DrawBall(material), dull), 1);
    // The alpha channel of the primary texture in its place.
    material.Textures.specular.clear();
    material.Textures.primary = WriteImage("dull.png", Plain(kClearWhite));
    material.TextureAlphaChannelUse = 3;
    EXPECT_LE(Difference(DrawBall(material), dull), 1);
}

/// Up is blue, down is green, the half around +x is brighter red than the one around -x.
QImage Surroundings()
{
    return ImageOf(256, [](double x, double y) {
        if (y < 0.25 || y > 0.75) {
            return y < 0.25 ? QColor(0, 0, 255) : QColor(0, 255, 0);
        }
        return x < 0.5 ? QColor(255, 0, 0) : QColor(120, 0, 0);
    });
}

TEST(EnvironmentMap, IsMirroredNotTinted)
{
    Material black = Glowing(0);
    black.Textures.environment = WriteImage("world.png", Surroundings());
    const QImage ball = DrawBall(black);
    // The front mirrors at 0.3; left of the middle the ball shows what is left of it, at -x, which
    // lies in the image's right half.
    EXPECT_NEAR(qRed(ball.pixel(36, 32)), Encoded(0.3), 6);
    EXPECT_LT(qRed(ball.pixel(28, 32)), Encoded(0.3 * 0.2) + 8);
    EXPECT_GT(qBlue(ball.pixel(32, 22)), 100);
    EXPECT_GT(qGreen(ball.pixel(32, 42)), 100);
    // Its rim mirrors more than its front.
    EXPECT_GT(qRed(ball.pixel(47, 32)), qRed(ball.pixel(40, 32)) + 10);
}

TEST(EnvironmentMap, StaysWithTheWorldAndIsMaskedByPrimaryAlpha)
{
    Material black = Glowing(0);
    black.Textures.environment = WriteImage("world.png", Surroundings());
    studio::Frame frame = FrameOf({Item(Ball(), black)});
    frame.camera.yawDegrees = 90.0F;  // seen from +x now, the bright half is ahead
    const QImage fromSide = Draw(frame);
    EXPECT_NEAR(qRed(fromSide.pixel(28, 32)), qRed(fromSide.pixel(36, 32)), 4);
    EXPECT_GT(qRed(fromSide.pixel(32, 32)), 140);
    black.Textures.primary = WriteImage("clear.png", Plain(kClearWhite));
    black.TextureAlphaChannelUse = 4;
    EXPECT_EQ(CountOf(DrawBall(black), kBlack), 64 * 64);
}

TEST(GeneratedTextures, StandInForPrimaryAndBump)
{
    const auto made = [](std::uint64_t id, const QImage& image) {
        return std::make_shared<const studio::Texture>(studio::Texture{id, image, false, {}});
    };
    studio::FrameItem item = Item(Square(), WithPrimary(WriteImage("blue.png", Plain(Qt::blue))));
    item.generatedColor = made(~0ULL, FourColours());
    EXPECT_EQ(Draw({item}).pixel(44, 20), qRgb(0, 255, 0));
    Material material;
    material.Textures.bump = WriteImage("valleys.png", Valleys(256));
    const QImage fromFile = DrawSquare(material);
    material.Textures.bump.clear();
    item = Item(Square(), material);
    item.generatedBump = made(~0ULL - 1, Valleys(256));
    EXPECT_EQ(Difference(Draw({item}), fromFile), 0);
}

}  // namespace
