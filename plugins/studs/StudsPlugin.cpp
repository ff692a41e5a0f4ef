#include "StudsPlugin.h"

#include "Shading.h"

namespace {

using namespace patterns;
using CorvexPlugin::ParameterKind;

constexpr float kHalfTurn = 3.1415927F;

enum Shape { Box, Cylinder, Sphere };
enum Form { Dome, Pyramid, Ring, Dimple };

// In the order of the parameters.
struct Values {
    Values(const std::vector<float>& values, float pixelSize)
        : pixel(pixelSize), shape(static_cast<int>(values[0])), form(static_cast<int>(values[1])),
          rows(static_cast<int>(values[2])), size(values[3]),
          sheet(CorvexPlugin::ColourOf(values[4])), stud(CorvexPlugin::ColourOf(values[5])),
          brushed(values[6] / 100.0F), tarnish(values[7] / 100.0F), staggered(values[8] != 0.0F)
    {
    }

    float pixel;  // of the texture
    int shape, form, rows;
    float size;  // diameter in distances between rows
    Colour sheet, stud;
    float brushed, tarnish;
    bool staggered;
};

// How many studs fit around the shape in a row, so that they are as far apart as the rows are.
int StudsAround(const Values& values, float rowMiddle)
{
    const float rows = static_cast<float>(values.rows);
    switch (values.shape) {
    case Cylinder:
        // As high as it is wide.
        return std::max(3, static_cast<int>(std::nearbyint(rows * kHalfTurn)));
    case Sphere:
        return std::max(
            3, static_cast<int>(std::nearbyint(2.0F * rows * std::sin(kHalfTurn * rowMiddle))));
    default:
        return values.rows;
    }
}

// The way around the shape at this height, in rows.
float WayAround(const Values& values, float v)
{
    const float rows = static_cast<float>(values.rows);
    switch (values.shape) {
    case Cylinder:
        return rows * kHalfTurn;
    case Sphere:
        return 2.0F * rows * std::sin(kHalfTurn * v);
    default:
        return rows;
    }
}

struct Place {
    float x = 0.0F;  // from the middle of the nearest stud, 1 = its edge
    float y = 0.0F;
    int row = 0;
    int number = 0;
};

Place PlaceAt(const Values& values, float u, float v)
{
    Place place;
    const float rows = static_cast<float>(values.rows);
    place.row = std::clamp(static_cast<int>(v * rows), 0, values.rows - 1);
    const float middle = (static_cast<float>(place.row) + 0.5F) / rows;
    const int around = StudsAround(values, middle);
    const float shift = values.staggered && place.row % 2 != 0 ? 0.5F : 0.0F;
    const float x = u * static_cast<float>(around) + shift;
    place.number = static_cast<int>(std::floor(x)) % around;
    const float radius = values.size * 0.5F;
    // A sphere's rows are shorter at one side than at the other; what counts is the way there.
    const float way = WayAround(values, v) / static_cast<float>(around);
    place.x = (Fraction(x) - 0.5F) * way / radius;
    place.y = (v - middle) * rows / radius;
    return place;
}

// 0 at the sheet to 1, by the distance from the middle of the stud.
float Profile(int form, const Place& place, float distance)
{
    const float inside = std::max(0.0F, 1.0F - distance * distance);
    switch (form) {
    case Pyramid:
        return std::max(0.0F, 1.0F - std::max(std::abs(place.x), std::abs(place.y)));
    case Ring:
        return Smooth(1.0F, 0.86F, distance) * Smooth(0.42F, 0.58F, distance);
    case Dimple:
        return -std::sqrt(inside);
    default:
        return std::sqrt(inside);
    }
}

// How much of the pixel is stud.
float Coverage(int form, const Place& place, float distance, float edge)
{
    if (form == Pyramid) {
        const float square = std::max(std::abs(place.x), std::abs(place.y));
        return 1.0F - Smooth(1.0F - edge, 1.0F + edge, square);
    }
    const float disc = 1.0F - Smooth(1.0F - edge, 1.0F + edge, distance);
    return form == Ring ? disc * Smooth(0.5F - edge, 0.5F + edge, distance) : disc;
}

Point PointAt(const Values& values, float u, float v)
{
    const Place place = PlaceAt(values, u, v);
    const float distance = std::hypot(place.x, place.y);
    const float edge =
        std::min(0.5F, 2.0F * values.pixel * static_cast<float>(values.rows) / values.size);
    const float stud = Coverage(values.form, place, distance, edge);
    const float profile = Profile(values.form, place, distance);

    const float scratches = Fractal(u, v, {{4, 256}, 2, 401}, values.pixel);
    const float stain = Smooth(0.05F, 0.5F,
                               Fractal(u, v, {{6, 6}, 5, 411}, values.pixel) +
                                   0.35F * std::exp(-3.0F * std::abs(distance - 1.0F)));
    // Dirt and shadow gather at the foot of each stud.
    const float foot = std::exp(-9.0F * std::max(0.0F, distance - 1.0F)) * (1.0F - stud);
    const float own = (Lattice(place.number, place.row, 421) - 0.5F) * 0.12F;

    Colour sheet = Scaled(values.sheet, 1.0F + values.brushed * scratches * 0.4F - 0.35F * foot);
    Colour metal = Scaled(values.stud, 0.86F + 0.2F * std::abs(profile) + own -
                                           0.12F * values.brushed * scratches);
    const Colour tarnish{0.24F, 0.15F, 0.09F};
    Point point;
    point.colour = Mix(Mix(sheet, metal, stud), tarnish, values.tarnish * stain * 0.85F);
    point.height = std::clamp(0.5F + profile * 0.42F + values.brushed * scratches * 0.03F +
                                  values.tarnish * stain * 0.03F,
                              0.0F, 1.0F);
    return point;
}

}  // namespace

std::vector<CorvexPlugin::Parameter> StudsPlugin::Parameters() const
{
    return {
        {"Placed for", ParameterKind::Shape, 0, 0, 0, {}, Sphere, 0},
        {"Form", ParameterKind::List, 0, 0, 0, {"Dome", "Pyramid", "Ring", "Dimple"}, Dome, 0},
        {"Rows", ParameterKind::Slider, 2, 32, 0, {}, 10, 4},
        {"Size", ParameterKind::Number, 0.1F, 1, 2, {}, 0.62F, 0.05F},
        {"Sheet",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.36F, 0.38F, 0.42F}),
         0},
        {"Stud",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.84F, 0.68F, 0.38F}),
         0},
        {"Brushed", ParameterKind::Slider, 0, 100, 0, {}, 50, 10},
        {"Tarnish", ParameterKind::Slider, 0, 100, 0, {}, 15, 10},
        {"Staggered", ParameterKind::Tick, 0, 0, 0, {}, 1, 0},
    };
}

void StudsPlugin::Generate(const CorvexPlugin::Request& request,
                           CorvexPlugin::Texture& texture) const
{
    const Values values(request.values, 1.0F / static_cast<float>(request.height));
    CorvexPlugin::Fill(request, CorvexPlugin::Relief::Heights, texture,
                       [&](float u, float v) { return PointAt(values, u, v); });
}

#include "moc_StudsPlugin.cpp"
