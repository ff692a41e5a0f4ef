#include "Drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace drawing;

namespace {

constexpr CorvexMaterial::Colour kRed = 0x0000FF;
constexpr CorvexMaterial::Colour kGreen = 0x00FF00;
constexpr CorvexMaterial::Colour kBlue = 0xFF0000;

// Encoded values of linear light.
constexpr int kHalf = 188;
constexpr int kQuarter = 137;

void ExpectColour(QRgb pixel, QRgb expected)
{
    EXPECT_NEAR(qRed(pixel), qRed(expected), 1);
    EXPECT_NEAR(qGreen(pixel), qGreen(expected), 1);
    EXPECT_NEAR(qBlue(pixel), qBlue(expected), 1);
}

TEST(Transparency, CrossingSquaresBlendRightOnBothSides)
{
    Material red = Glowing(kRed, 50);
    Material green = Glowing(kGreen, 50);
    red.DoubleSided = green.DoubleSided = true;
    std::vector<studio::FrameItem> items{Item(Square(), red, TurnedAboutY(50.0F)),
                                         Item(Square(), green, TurnedAboutY(-50.0F)),
                                         Item(Square(), Glowing(kBlue), Moved(0, 0, -1.5F))};
    const QImage picture = Draw(items);
    // Turned to the right by 50 degrees, the red square's left half comes to the viewer.
    ExpectColour(picture.pixel(25, 32), qRgb(kHalf, kQuarter, kQuarter));
    ExpectColour(picture.pixel(38, 32), qRgb(kQuarter, kHalf, kQuarter));
    do {
        EXPECT_EQ(Difference(Draw(items), picture), 0);
        std::rotate(items.begin(), items.begin() + 1, items.end());
    } while (items.front().material->Color != kRed);
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
    const double linear = 1.0 - std::pow(0.9, kSheets);
    const double encoded = 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055;
    EXPECT_NEAR(qGreen(picture.pixel(32, 32)), 255.0 * encoded, 1.0);
}

TEST(Transparency, SolidThingsHideWhatIsBehindThem)
{
    const QImage picture =
        Draw({Item(Square(), Glowing(kRed, 50), Moved(0, 0, 0.5F)), Item(Square(), Glowing(kGreen)),
              Item(Square(), Glowing(kBlue, 50), Moved(0, 0, -0.5F))});
    ExpectColour(picture.pixel(32, 32), qRgb(kHalf, kHalf, 0));
}

TEST(Transparency, FourSamplesGiveTheSameInside)
{
    studio::Frame frame = FrameOf(
        {Item(Square(), Glowing(kRed, 50), Moved(0, 0, 0.5F)), Item(Square(), Glowing(kBlue, 50))});
    const QImage one = Draw(frame);
    frame.samples = 4;
    EXPECT_EQ(Draw(frame).pixel(32, 32), one.pixel(32, 32));
}

}  // namespace
