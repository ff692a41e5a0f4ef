#include "Drawing.h"
#include "GlContext.h"
#include "Images.h"
#include "Renderer.h"
#include "TextureCache.h"

using namespace drawing;
using CorvexDB::FlatWrapType;
using CorvexDB::WrapType;

namespace {

Material FourColoured()
{
    Material material = Glowing(CorvexMaterial::kWhite);
    material.Textures.primary = WriteImage("four.png", FourColours());
    return material;
}

/// Corners of the unit square's picture, from the top left as one reads.
std::vector<QRgb> CornersOf(const QImage& picture)
{
    return {picture.pixel(20, 20), picture.pixel(44, 20), picture.pixel(20, 44),
            picture.pixel(44, 44)};
}

TEST(Placement, FlipsTurnTheImageRound)
{
    Material material = FourColoured();
    material.WrapOrientationU = true;
    EXPECT_EQ(CornersOf(DrawSquare(material)), (std::vector<QRgb>{kGreen, kRed, kWhite, kBlue}));
    material.WrapOrientationV = true;
    EXPECT_EQ(CornersOf(DrawSquare(material)), (std::vector<QRgb>{kWhite, kBlue, kGreen, kRed}));
}

TEST(Placement, CropShowsItsPartOfTheImageAlone)
{
    using Corners = std::vector<QRgb>;
    const std::pair<CorvexDB::TexturePlacement, Corners> rows[] = {
        {{0.5F, 0.0F, 0.5F, 0.5F}, {kGreen, kGreen, kGreen, kGreen}},
        {{0.0F, 0.5F, 0.5F, 0.5F}, {kBlue, kBlue, kBlue, kBlue}},
        {{0.0F, 0.0F, 0.5F, 1.0F}, {kRed, kRed, kBlue, kBlue}},
        {{1.0F, 0.0F, -1.0F, 1.0F}, {kGreen, kRed, kWhite, kBlue}},
        {{0.5F, 1.0F, -0.5F, -0.5F}, {kBlue, kBlue, kBlue, kBlue}},
        {{0.25F, 0.25F, 0.0F, 0.0F}, {kRed, kRed, kRed, kRed}},
        {{NAN, 0.0F, INFINITY, 1.0F}, {kRed, kGreen, kBlue, kWhite}}};
    for (const auto& [crop, corners] : rows) {
        Material material = FourColoured();
        material.Placement = crop;
        const QImage picture = DrawSquare(material);
        EXPECT_EQ(CornersOf(picture), corners);
        // Nothing of the neighbouring quarter is mixed in along the border.
        EXPECT_EQ(picture.pixel(17, 20), corners[0]);
        EXPECT_EQ(picture.pixel(20, 46), corners[2]);
    }
}

studio::FrameItem Wrapped(const std::shared_ptr<const studio::Mesh>& mesh, Material material,
                          const QMatrix4x4& worldFromMesh = {},
                          CorvexDB::ApplyMode mode = CorvexDB::ApplyMode::Relative)
{
    studio::FrameItem item = Item(mesh, material, worldFromMesh);
    item.coordinates = CorvexSG::CoordinateMode::FromWrap;
    item.applyMode = mode;
    return item;
}

/// Colours change along a row of pixels; one more than the number of equal runs.
int ChangesAlongRow(const QImage& picture, int row)
{
    int changes = 0;
    for (int x = 18; x < 46; ++x) {
        const bool before = qRed(picture.pixel(x, row)) > 128;
        changes += before != (qRed(picture.pixel(x + 1, row)) > 128) ? 1 : 0;
    }
    return changes;
}

TEST(FlatWrap, TilesByUnitToFitAndBySize)
{
    Material material = FourColoured();
    material.Wrap = WrapType::Flat;
    const auto draw = [&](FlatWrapType type, float tiles) {
        material.FlatWrap = type;
        material.TilesPerUnit = tiles;
        return Draw({Wrapped(Square(), material)});
    };
    EXPECT_EQ(CornersOf(draw(FlatWrapType::SizeToFit, 3.0F)),
              (std::vector<QRgb>{kRed, kGreen, kBlue, kWhite}));
    // Two units across: 4 tiles begin at the top left.
    const QImage byUnit = draw(FlatWrapType::TileByUnit, 2.0F);
    EXPECT_EQ(ChangesAlongRow(byUnit, 18), 7);
    EXPECT_EQ(byUnit.pixel(18, 18), kRed);
    EXPECT_EQ(byUnit.pixel(22, 18), kGreen);
    // 0.8 tiles a unit are 1.6 across: the nearest whole number is 2.
    EXPECT_EQ(ChangesAlongRow(draw(FlatWrapType::TileToFit, 0.8F), 18), 3);
    EXPECT_EQ(ChangesAlongRow(draw(FlatWrapType::TileToFit, 0.6F), 18), 1);
    EXPECT_EQ(ChangesAlongRow(draw(FlatWrapType::TileToFit, 0.01F), 18), 1);
    EXPECT_EQ(ChangesAlongRow(draw(FlatWrapType::TileByUnit, NAN), 18), 3);
}

TEST(FlatWrap, RelativeTilesAreAsLargeOnAShapeThatIsScaled)
{
    Material material = FourColoured();
    material.Wrap = WrapType::Flat;
    QMatrix4x4 flat;
    flat.scale(1.0F, 0.5F, 1.0F);  // one unit high: one tile
    const QImage picture = Draw({Wrapped(Square(), material, flat)});
    EXPECT_EQ(picture.pixel(20, 27), kRed);
    EXPECT_EQ(picture.pixel(20, 30), kRed);
    EXPECT_EQ(picture.pixel(20, 36), kBlue);
}

TEST(FlatWrap, AbsoluteTilesContinueFromShapeToShape)
{
    Material material = FourColoured();
    material.Wrap = WrapType::Flat;
    material.TilesPerUnit = 0.5F;
    QMatrix4x4 left = Moved(-0.5F, 0, 0);
    left.scale(0.5F, 1.0F, 1.0F);
    QMatrix4x4 right = Moved(0.5F, 0, 0);
    right.scale(0.5F, 1.0F, 1.0F);
    const auto mode = CorvexDB::ApplyMode::Absolute;
    EXPECT_LE(Difference(Draw({Wrapped(Square(), material, left, mode),
                               Wrapped(Square(), material, right, mode)}),
                         Draw({Wrapped(Square(), material, {}, mode)})),
              1);
    // Relative ones turn with their shape.
    QMatrix4x4 turned;
    turned.rotate(180.0F, 0, 0, 1);
    material.FlatWrap = FlatWrapType::SizeToFit;
    EXPECT_EQ(CornersOf(Draw({Wrapped(Square(), material, turned, mode)})),
              (std::vector<QRgb>{kRed, kGreen, kBlue, kWhite}));
    EXPECT_EQ(CornersOf(Draw({Wrapped(Square(), material, turned)})),
              (std::vector<QRgb>{kWhite, kBlue, kGreen, kRed}));
}

TEST(FlatWrap, NoSideIsSmearedOrMirrored)
{
    Material material = FourColoured();
    material.Wrap = WrapType::Flat;
    material.FlatWrap = FlatWrapType::SizeToFit;
    for (const float yaw : {0.0F, 90.0F, 180.0F, 270.0F}) {
        studio::Frame frame = FrameOf({Wrapped(Ball(), material)});
        frame.camera.yawDegrees = yaw;
        const QImage picture = Draw(frame);
        EXPECT_EQ(picture.pixel(27, 27), kRed) << yaw;
        EXPECT_EQ(picture.pixel(37, 27), kGreen) << yaw;
        EXPECT_EQ(picture.pixel(27, 37), kBlue) << yaw;
        EXPECT_EQ(picture.pixel(37, 37), kWhite) << yaw;
    }
}

/// Red and green tell the place: columns of the image from left to right, rows from the top.
Material Measured(WrapType wrap)
{
    Material material = Glowing(CorvexMaterial::kWhite);
    material.Textures.primary =
        WriteImage("measure.png", ImageOf(256, [](double x, double y) {
                       return QColor(static_cast<int>(255.0 * x), static_cast<int>(255.0 * y), 0);
                   }));
    material.Wrap = wrap;
    return material;
}

/// The point of the unit ball that the middle of this pixel shows.
std::array<double, 3> BallPointAt(int column, int row)
{
    const double eye = 2.0 / std::tan(10.0 * 3.14159265 / 180.0);
    std::array<double, 3> point{0.0, 0.0, 1.0};
    for (int round = 0; round < 5; ++round) {
        const double nearer = 1.0 - point[2] / eye;
        point[0] = (column + 0.5 - 32.0) / 16.0 * nearer;
        point[1] = (32.0 - row - 0.5) / 16.0 * nearer;
        point[2] = std::sqrt(1.0 - point[0] * point[0] - point[1] * point[1]);
    }
    return point;
}

TEST(RoundWraps, FollowLongitudeAndLatitudeOrHeight)
{
    for (const WrapType wrap : {WrapType::Spherical, WrapType::Cylindrical}) {
        const QImage picture = Draw({Wrapped(Ball(), Measured(wrap))});
        for (const auto& [column, row] : {std::pair{32, 24}, {38, 32}, {26, 40}, {32, 20}}) {
            const auto [x, y, z] = BallPointAt(column, row);
            const double across = 0.5 + std::atan2(x, z) / 6.2831853;
            const double down =
                wrap == WrapType::Spherical ? std::acos(y) / 3.14159265 : 0.5 - 0.5 * y;
            EXPECT_NEAR(qRed(picture.pixel(column, row)), 255.0 * across, 2) << column;
            EXPECT_NEAR(qGreen(picture.pixel(column, row)), 255.0 * down, 2) << row;
        }
    }
}

TEST(RoundWraps, HaveNoSeamAtTheBack)
{
    // Stripes that meet in white at the seam: a coarse mipmap there would be gray.
    Material material = Glowing(CorvexMaterial::kWhite);
    material.Textures.primary =
        WriteImage("seam.png", ImageOf(256, [](double x, double) {
                       return x < 0.2 || x > 0.8 ? QColor(Qt::white) : QColor(Qt::black);
                   }));
    for (const WrapType wrap : {WrapType::Spherical, WrapType::Cylindrical}) {
        material.Wrap = wrap;
        studio::Frame frame = FrameOf({Wrapped(Ball(), material)});
        frame.camera.yawDegrees = 180.0F;
        const QImage picture = Draw(frame);
        for (int x = 26; x < 38; ++x) {
            EXPECT_EQ(picture.pixel(x, 32), kWhite) << x;
        }
    }
}

TEST(RoundWraps, TopAndBottomRowsDoNotMeet)
{
    Material material = Glowing(CorvexMaterial::kWhite);
    material.Textures.primary = WriteImage("ends.png", ImageOf(8, [](double, double y) {
                                               return y < 0.5 ? QColor(Qt::red) : QColor(Qt::blue);
                                           }));
    for (const WrapType wrap : {WrapType::Spherical, WrapType::Cylindrical}) {
        material.Wrap = wrap;
        for (const bool flipped : {false, true}) {
            material.WrapOrientationV = flipped;
            studio::Frame frame = FrameOf({Wrapped(Ball(), material)});
            frame.camera.pitchDegrees = 80.0F;
            EXPECT_EQ(CountOf(Draw(frame), flipped ? kRed : kBlue), 0);
            frame.camera.pitchDegrees = -80.0F;
            EXPECT_EQ(CountOf(Draw(frame), flipped ? kBlue : kRed), 0);
        }
    }
}

TEST(TextureUploads, OneForEachFileAndUseWhateverDrawsIt)
{
    studio::TextureCache cache;
    std::vector<std::string> files;
    for (int i = 0; i < 6; ++i) {
        files.push_back(WriteImage(QString("file%1.png").arg(i), Plain(QColor(40 * i, 255, 0))));
    }
    std::vector<studio::FrameItem> items;
    const auto square = Square();
    for (std::size_t i = 0; i < 120; ++i) {
        Material material;
        for (std::size_t layer = 0; layer < studio::kLayerCount; ++layer) {
            material.Textures.*studio::kLayerRows[layer].file = files[(i + layer) % files.size()];
        }
        items.push_back(Item(square, material));
    }
    int asked = 0;
    const studio::TextureLookup lookup = [&](const std::string& path) {
        ++asked;
        return cache.Await(path);
    };
    studio::Renderer renderer(studio::MakeGlContextProvider()->Create());
    for (int frame = 0; frame < 3; ++frame) {
        (void)renderer.Draw(FrameOf(items), lookup);
    }
    EXPECT_EQ(asked, 3 * 6);
    EXPECT_EQ(renderer.TextureUploads(), 6U * 2U);  // as colour and as data
}

}  // namespace
