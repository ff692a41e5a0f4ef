#include "Drawing.h"

using namespace drawing;

namespace {

constexpr CorvexMaterial::Colour kRedGlow = 0x0000FF;
constexpr CorvexMaterial::Colour kGreenGlow = 0x00FF00;
constexpr CorvexMaterial::Colour kBlueGlow = 0xFF0000;

TEST(Transparency, CrossingSquaresBlendRightOnBothSides)
{
    Material red = Glowing(kRedGlow, 50);
    Material green = Glowing(kGreenGlow, 50);
    red.DoubleSided = green.DoubleSided = true;
    std::vector<studio::FrameItem> items{Item(Square(), red, TurnedAboutY(50.0F)),
                                         Item(Square(), green, TurnedAboutY(-50.0F)),
                                         Item(Square(), Glowing(kBlueGlow), Moved(0, 0, -1.5F))};
    const QImage picture = Draw(items);
    const int half = Encoded(0.5);
    const int quarter = Encoded(0.25);
    // Turned to the right by 50 degrees, the red square's left half comes to the viewer.
    ExpectNear(picture.pixel(25, 32), qRgb(half, quarter, quarter), 1);
    ExpectNear(picture.pixel(38, 32), qRgb(quarter, half, quarter), 1);
    do {
        EXPECT_EQ(Difference(Draw(items), picture), 0);
        std::rotate(items.begin(), items.begin() + 1, items.end());
    } while (items.front().material->Color != kRedGlow);
}

TEST(Transparency, ConcaveShapeShowsEverySurfaceInOrder)
{
    // Twenty sheets of one mesh, the triangles listed from the front, the middle and the back.
    constexpr std::uint32_t kSheets = 20;
    const auto square = Square();
    std::vector<studio::Vertex> vertices;
    std::vector<std::uint32_t> indices;
    for (std::uint32_t i = 0; i < kSheets; ++i) {
        const std::uint32_t sheet = (i * 7) % kSheets;
        for (studio::Vertex corner : square->vertices) {
            corner.position[2] = -0.05F * static_cast<float>(sheet);
            vertices.push_back(corner);
        }
        for (const std::uint32_t index : square->indices) {
            indices.push_back(4 * i + index);
        }
    }
    const QImage picture = Draw({Item(studio::MakeMesh(vertices, indices), Glowing(0xFFFFFF, 90))});
    EXPECT_NEAR(qGreen(picture.pixel(32, 32)), Encoded(1.0 - std::pow(0.9, kSheets)), 1);
}

TEST(Transparency, SolidThingsHideWhatIsBehindThem)
{
    const QImage picture = Draw({Item(Square(), Glowing(kRedGlow, 50), Moved(0, 0, 0.5F)),
                                 Item(Square(), Glowing(kGreenGlow)),
                                 Item(Square(), Glowing(kBlueGlow, 50), Moved(0, 0, -0.5F))});
    ExpectNear(picture.pixel(32, 32), qRgb(Encoded(0.5), Encoded(0.5), 0), 1);
}

TEST(Transparency, FourSamplesGiveTheSameInside)
{
    studio::Frame frame = FrameOf({Item(Square(), Glowing(kRedGlow, 50), Moved(0, 0, 0.5F)),
                                   Item(Square(), Glowing(kBlueGlow, 50))});
    const QImage one = Draw(frame);
    frame.samples = 4;
    EXPECT_EQ(Draw(frame).pixel(32, 32), one.pixel(32, 32));
}

}  // namespace
