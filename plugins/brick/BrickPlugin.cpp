#include "BrickPlugin.h"

#include "Shading.h"

namespace {

using namespace patterns;
using CorvexPlugin::ParameterKind;

enum Bond { Running, Third, Flemish, Stack };

// In the order of the parameters.
struct Values {
    Values(const std::vector<float>& values, float pixelSize)
        : pixel(pixelSize), bond(static_cast<int>(values[0])), rows(static_cast<int>(values[1])),
          across(static_cast<int>(values[2])), joint(values[3] * 0.5F),
          brick(CorvexPlugin::ColourOf(values[4])), mortar(CorvexPlugin::ColourOf(values[5])),
          variety(values[6] / 100.0F), wear(values[7] / 100.0F), burnt(values[8] != 0.0F)
    {
    }

    float pixel;  // of the texture
    int bond, rows, across;
    float joint;  // half of its width, in rows
    Colour brick, mortar;
    float variety, wear;
    bool burnt;
};

// A point in the brick that it belongs to.
struct Place {
    float x = 0.0F;  // from the brick's middle, in rows
    float y = 0.0F;
    float halfLength = 0.0F;
    int column = 0;
    int row = 0;
};

// One brick of the row: where it begins and ends, in bricks.
struct Span {
    float begin = 0.0F;
    float end = 1.0F;
};

Span SpanAt(int bond, float& x, int& column)
{
    column = static_cast<int>(std::floor(x));
    x -= static_cast<float>(column);
    if (bond != Flemish) {
        return {};
    }
    // A long brick and a short one take turns.
    constexpr float kLong = 2.0F / 3.0F;
    column = column * 2 + (x < kLong ? 0 : 1);
    return x < kLong ? Span{0.0F, kLong} : Span{kLong, 1.0F};
}

float RowShift(int bond, int row)
{
    switch (bond) {
    case Running:
        return row % 2 == 0 ? 0.0F : 0.5F;
    case Third:
        return static_cast<float>(row % 3) / 3.0F;
    case Flemish:
        // Puts the short brick on the middle of the long one.
        return row % 2 == 0 ? 0.0F : 0.5F;
    default:
        return 0.0F;
    }
}

Place PlaceAt(const Values& values, float u, float v)
{
    Place place;
    const float rows = static_cast<float>(values.rows);
    place.row = static_cast<int>(v * rows);
    place.y = v * rows - static_cast<float>(place.row) - 0.5F;
    // Rows have a length of this many row heights per brick.
    const float length = rows / static_cast<float>(values.across);
    float x = u * static_cast<float>(values.across) + RowShift(values.bond, place.row);
    const Span span = SpanAt(values.bond, x, place.column);
    const int columns = values.across * (values.bond == Flemish ? 2 : 1);
    place.column = (place.column % columns + columns) % columns;
    place.x = (x - (span.begin + span.end) * 0.5F) * length;
    place.halfLength = (span.end - span.begin) * 0.5F * length;
    return place;
}

// Distance to the rounded edge of the brick, in rows, negative inside.
float EdgeDistance(const Values& values, const Place& place)
{
    const float radius = 0.04F + 0.1F * values.wear;
    const float x = std::abs(place.x) - (place.halfLength - values.joint) + radius;
    const float y = std::abs(place.y) - (0.5F - values.joint) + radius;
    return std::hypot(std::max(x, 0.0F), std::max(y, 0.0F)) + std::min(std::max(x, y), 0.0F) -
           radius;
}

Colour BrickColour(const Values& values, const Place& place, float grain)
{
    const float tone = Lattice(place.column, place.row, 11) - 0.5F;
    const float warmth = Lattice(place.column, place.row, 12) - 0.5F;
    Colour colour = Scaled(values.brick, 1.0F + values.variety * tone * 0.9F);
    colour.red *= 1.0F + values.variety * warmth * 0.25F;
    colour.blue *= 1.0F - values.variety * warmth * 0.35F;
    if (values.burnt && Lattice(place.column, place.row, 13) > 0.82F) {
        colour = Mix(colour, {0.16F, 0.12F, 0.13F}, 0.72F);
    }
    return Scaled(colour, 1.0F + grain);
}

Point PointAt(const Values& values, float u, float v)
{
    const Place place = PlaceAt(values, u, v);
    const int cells = std::max(2, values.rows);
    const float rough = Fractal(u, v, {{cells * 2, cells * 2}, 4, 21}, values.pixel);
    const float fine = Fractal(u, v, {{cells * 14, cells * 14}, 2, 31}, values.pixel);
    const float distance = EdgeDistance(values, place) + rough * (0.02F + 0.09F * values.wear);
    const float width = values.pixel * static_cast<float>(values.rows);
    const float brick = 1.0F - Smooth(-width, width, distance);
    const float face = 1.0F - Smooth(-0.1F, 0.0F, distance);

    const Colour mortar = Scaled(values.mortar, 1.0F + fine * 0.22F + rough * 0.1F);
    const Colour stone = BrickColour(
        values, place, fine * 0.2F + rough * (0.1F + 0.3F * values.wear) - (1.0F - face) * 0.16F);
    // A little shadow where the mortar meets the brick.
    const float shadow = 1.0F - 0.28F * (1.0F - Smooth(0.0F, 0.07F, distance));
    Point point;
    point.colour = Mix(Scaled(mortar, shadow), stone, brick);
    const float tilt = (Lattice(place.column, place.row, 14) - 0.5F) * 0.1F;
    point.height =
        Mix(0.18F + fine * 0.05F,
            0.62F + 0.14F * face + tilt + fine * 0.06F + rough * (0.04F + 0.2F * values.wear),
            1.0F - Smooth(-0.03F - width, 0.02F + width, distance));
    return point;
}

}  // namespace

std::vector<CorvexPlugin::Parameter> BrickPlugin::Parameters() const
{
    return {
        {"Bond",
         ParameterKind::List,
         0,
         0,
         0,
         {"Running", "Third", "Flemish", "Stack"},
         Running,
         0},
        {"Rows", ParameterKind::Slider, 2, 24, 0, {}, 8, 4},
        {"Bricks across", ParameterKind::Slider, 1, 12, 0, {}, 4, 2},
        {"Joint", ParameterKind::Number, 0, 0.4F, 2, {}, 0.14F, 0.02F},
        {"Brick",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.64F, 0.30F, 0.22F}),
         0},
        {"Mortar",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.76F, 0.73F, 0.67F}),
         0},
        {"Variety", ParameterKind::Slider, 0, 100, 0, {}, 45, 10},
        {"Wear", ParameterKind::Slider, 0, 100, 0, {}, 30, 10},
        {"Burnt bricks", ParameterKind::Tick, 0, 0, 0, {}, 1, 0},
    };
}

void BrickPlugin::Generate(const CorvexPlugin::Request& request,
                           CorvexPlugin::Texture& texture) const
{
    const Values values(request.values, 1.0F / static_cast<float>(request.height));
    CorvexPlugin::Fill(request, CorvexPlugin::Relief::Heights, texture,
                       [&](float u, float v) { return PointAt(values, u, v); });
}

#include "moc_BrickPlugin.cpp"
