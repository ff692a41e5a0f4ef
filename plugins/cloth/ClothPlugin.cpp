#include "ClothPlugin.h"

#include "Shading.h"

#include <array>

namespace {

using namespace patterns;
using CorvexPlugin::ParameterKind;

enum Weave { Plain, Twill, Satin, Basket };

// Threads after which each weave repeats.
constexpr std::array kRepeats{2, 4, 5, 4};

// In the order of the parameters.
struct Values {
    Values(const std::vector<float>& values, float pixelSize)
        : pixel(pixelSize), weave(static_cast<int>(values[0])), thickness(values[2]),
          warp(CorvexPlugin::ColourOf(values[3])), weft(CorvexPlugin::ColourOf(values[4])),
          unevenness(values[5] / 100.0F), fuzz(values[6] / 100.0F), open(values[7] != 0.0F)
    {
        const int repeat = kRepeats[static_cast<std::size_t>(weave)];
        threads = std::max(1, static_cast<int>(values[1]) / repeat) * repeat;
    }

    float pixel;  // of the texture
    int weave;
    int threads = 0;  // in each direction
    float thickness;  // in distances between threads
    Colour warp, weft;
    float unevenness, fuzz;
    bool open;  // nothing is behind the gaps
};

// Whether the warp thread, which runs down, lies on top where it crosses this weft thread.
bool WarpOnTop(int weave, int column, int row)
{
    switch (weave) {
    case Twill:
        return ((column + row) & 3) < 2;
    case Satin:
        return (column * 2 + row) % 5 != 0;
    case Basket:
        return ((column / 2 + row / 2) & 1) == 0;
    default:
        return ((column + row) & 1) == 0;
    }
}

int Wrapped(int value, int count)
{
    return (value % count + count) % count;
}

float Level(const Values& values, int column, int row)
{
    return WarpOnTop(values.weave, Wrapped(column, values.threads), Wrapped(row, values.threads))
               ? 1.0F
               : -1.0F;
}

// Between two crossings a thread passes gently from one level to the next.
float Between(float here, float previous, float next, float along)
{
    const float other = along < 0.0F ? previous : next;
    return Mix(here, (here + other) * 0.5F, Smooth(0.15F, 0.5F, std::abs(along)));
}

struct Thread {
    float height = -9.0F;  // out of reach: there is none here
    float round = 0.0F;    // 1 on its middle line, 0 at its sides
    float twist = 0.0F;
};

// `across` and `along` in threads, from the middle of the crossing.
Thread ThreadAt(const Values& values, float across, float along, float level, float twist)
{
    Thread thread;
    const float side = across / (values.thickness * 0.5F);
    if (std::abs(side) < 1.0F) {
        thread.round = std::sqrt(1.0F - side * side);
        thread.height = level + 0.9F * thread.round;
        thread.twist = 0.5F + 0.5F * std::sin((along + twist) * 18.85F + side * 2.2F);
    }
    return thread;
}

// What is too broad, or too fine, to differ inside a pixel.
struct Wear {
    float swayU = 0.0F;
    float swayV = 0.0F;
    float hair = 0.0F;
};

Wear WearAt(const Values& values, float u, float v)
{
    const Periodic hairs{values.threads * 5, values.threads * 5};
    return {values.unevenness * 0.25F * Fractal(u, v, {{3, 5}, 2, 301}, values.pixel),
            values.unevenness * 0.25F * Fractal(u, v, {{5, 3}, 2, 311}, values.pixel),
            values.fuzz * Fractal(u, v, {hairs, 2, 331}, values.pixel)};
}

Point PointAt(const Values& values, const Wear& wear, float u, float v)
{
    const float x = u * static_cast<float>(values.threads) + wear.swayU;
    const float y = v * static_cast<float>(values.threads) + wear.swayV;
    const int column = static_cast<int>(std::floor(x));
    const int row = static_cast<int>(std::floor(y));
    const float dx = x - static_cast<float>(column) - 0.5F;
    const float dy = y - static_cast<float>(row) - 0.5F;
    const float here = Level(values, column, row);
    const float warpLevel =
        Between(here, Level(values, column, row - 1), Level(values, column, row + 1), dy);
    const float weftLevel =
        -Between(here, Level(values, column - 1, row), Level(values, column + 1, row), dx);

    const Thread warp = ThreadAt(values, dx, y, warpLevel, 0.0F);
    const Thread weft = ThreadAt(values, dy, x, weftLevel, 0.3F);
    const bool isWarp = warp.height >= weft.height;
    const Thread& top = isWarp ? warp : weft;

    Point point;
    if (top.height < -5.0F) {
        point.colour = Scaled(Mix(values.warp, values.weft, 0.5F), 0.12F);
        point.alpha = values.open ? 0.0F : 1.0F;
        point.height = 0.0F;
        return point;
    }
    const int number = isWarp ? Wrapped(column, values.threads) : Wrapped(row, values.threads);
    const float own = Lattice(number, isWarp ? 0 : 1, 321) - 0.5F;
    const float depth = std::clamp((top.height + 1.0F) / 2.9F, 0.0F, 1.0F);
    const float light = (0.3F + 0.7F * Smooth(0.1F, 0.9F, depth)) * (0.72F + 0.28F * top.round) *
                        (0.88F + 0.2F * top.twist) * (1.0F + wear.hair * 0.55F) *
                        (1.0F + values.unevenness * own * 0.4F);
    point.colour = Scaled(isWarp ? values.warp : values.weft, light);
    point.height = 0.1F + 0.75F * depth + 0.06F * top.twist + wear.hair * 0.1F;
    return point;
}

}  // namespace

std::vector<CorvexPlugin::Parameter> ClothPlugin::Parameters() const
{
    return {
        {"Weave", ParameterKind::List, 0, 0, 0, {"Plain", "Twill", "Satin", "Basket"}, Twill, 0},
        {"Threads", ParameterKind::Slider, 4, 96, 0, {}, 32, 8},
        {"Thickness", ParameterKind::Number, 0.3F, 1, 2, {}, 0.8F, 0.05F},
        {"Warp",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.20F, 0.32F, 0.52F}),
         0},
        {"Weft",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.86F, 0.84F, 0.78F}),
         0},
        {"Unevenness", ParameterKind::Slider, 0, 100, 0, {}, 35, 10},
        {"Fuzz", ParameterKind::Slider, 0, 100, 0, {}, 40, 10},
        {"Open mesh", ParameterKind::Tick, 0, 0, 0, {}, 0, 0},
    };
}

void ClothPlugin::Generate(const CorvexPlugin::Request& request,
                           CorvexPlugin::Texture& texture) const
{
    const Values values(request.values, 1.0F / static_cast<float>(request.height));
    CorvexPlugin::Fill(request, CorvexPlugin::Relief::Heights, texture, [&](float u, float v) {
        const Wear wear = WearAt(values, u, v);
        return Averaged(u, v, values.pixel,
                        [&](float x, float y) { return PointAt(values, wear, x, y); });
    });
}

#include "moc_ClothPlugin.cpp"
