#include "Textures.h"

#include "Field.h"

#include <array>

namespace media {
namespace {

/// Fine lines from left to right, as a belt leaves them.
float Brushing(Point p, Seed seed)
{
    return 0.45F * Noise(p, {2, 220}, seed) + 0.35F * Noise(p, {5, 160}, seed + 1) +
           0.25F * Noise(p, {12, 250}, seed + 2) + 0.25F * Noise(p, {3, 60}, seed + 3);
}

/// Thin scratches that run in all directions.
float Scratches(Point p, Seed seed)
{
    float sum = 0.0F;
    for (int pass = 0; pass < 3; ++pass) {
        const auto turn = static_cast<float>(pass - 1);
        const Point q{p.u + turn * p.v, p.v - turn * p.u};
        const Cell scratch = Cells(q, {3 + pass, 150}, seed + static_cast<Seed>(pass));
        sum = std::max(sum, Smooth(0.22F, 0.06F, scratch.centre) *
                                (scratch.random > 0.55F ? 1.0F : 0.0F));
    }
    return sum;
}

}  // namespace

Texel BrushedAluminium(Point p)
{
    const float lines = Brushing(p, 4000);
    const float cloud = Fractal(p, {3, 3}, 3, 4010);
    return {Hex(0xBDBFC3) * (1.0F + 0.13F * lines + 0.04F * cloud), 0.5F + 0.030F * lines,
            std::clamp(0.62F + 0.45F * lines, 0.0F, 1.0F)};
}

Texel BrushedBrass(Point p)
{
    const float lines = Brushing(p, 4050);
    const float stain =
        Smooth(0.05F, 0.6F, Fractal(Warped(p, {4, 4}, 0.05F, 4060), {4, 4}, 4, 4070));
    const Paint metal = Mix(Hex(0xC9A24E), Hex(0x9C7433), 0.22F * stain);
    return {metal * (1.0F + 0.12F * lines), 0.5F + 0.030F * lines,
            std::clamp(0.70F + 0.4F * lines - 0.15F * stain, 0.0F, 1.0F)};
}

Texel HammeredCopper(Point p)
{
    const Cell dent = Cells(Warped(p, {10, 10}, 0.006F, 4100), {15, 15}, 4110);
    const Cell small = Cells(p, {26, 26}, 4120);
    const float bowl = std::min(1.0F, dent.centre * dent.centre * 1.35F);
    const float rim = Smooth(0.12F, 0.0F, dent.border);
    const float patina =
        Smooth(0.1F, 0.7F, Fractal(Warped(p, {5, 5}, 0.04F, 4130), {5, 5}, 4, 4140));
    Paint colour = Mix(Hex(0xD68A5C), Hex(0xB5663B), 0.5F * bowl + 0.3F * dent.random);
    colour = Mix(colour, Hex(0x6B3621), 0.50F * patina + 0.06F * rim);
    return {colour, 0.30F + 0.36F * bowl + 0.04F * small.centre,
            std::clamp(1.0F - 0.5F * patina - 0.25F * rim, 0.0F, 1.0F)};
}

Texel RustedIron(Point p)
{
    constexpr std::array kRust{Hex(0x3B1C10), Hex(0x6E3216), Hex(0x9C4B1B), Hex(0xC26F2A),
                               Hex(0xD98F47)};
    const Point q = Warped(p, {4, 4}, 0.08F, 4200, 5);
    const float spread = Fractal(q, {3, 3}, 5, 4210) + 0.18F * Fractal(p, {28, 28}, 3, 4220);
    const float rust = Smooth(-0.16F, -0.02F, spread);
    const float fringe = rust * Smooth(0.20F, -0.02F, spread);
    const float crust = Fractal(q, {18, 18}, 5, 4230);
    const Cell pit = Cells(Warped(p, {30, 30}, 0.008F, 4240), {46, 46}, 4250);
    const float pitted = Smooth(0.35F, 0.1F, pit.centre) * (pit.random > 0.6F ? 1.0F : 0.0F);
    const Paint steel =
        Mix(Hex(0x6D7073), Hex(0x8B8D8F), 0.5F + 0.5F * Fractal(p, {9, 9}, 4, 4260)) *
        (1.0F - 0.25F * pitted);
    const Paint oxide =
        Ramp(kRust, 0.42F + 0.55F * crust + 0.30F * fringe) * (1.0F - 0.3F * pitted);
    return {Mix(steel, oxide, rust), 0.40F + rust * (0.20F + 0.22F * crust) - 0.12F * pitted,
            Mix(0.85F - 0.4F * pitted, 0.06F, rust)};
}

Texel Verdigris(Point p)
{
    constexpr std::array kPatina{Hex(0x2C6C62), Hex(0x4F9C8C), Hex(0x7DBFAC), Hex(0xA9D8C6)};
    const Point run = Warped({p.u, p.v}, {5, 2}, 0.05F, 4300, 4);
    const float streaks = Fractal(run, {12, 2}, 4, 4310);
    const float bloom = Fractal(run, {4, 4}, 5, 4320);
    const float cover = Smooth(-0.22F, 0.16F, 0.6F * bloom + 0.55F * streaks + 0.08F);
    const float grain = Fractal(p, {50, 50}, 3, 4330);
    const Paint bronze =
        Mix(Hex(0x4A3320), Hex(0x7F5C34), 0.5F + 0.6F * bloom) * (1.0F + 0.1F * grain);
    const Paint green =
        Ramp(kPatina, 0.48F + 0.6F * Fractal(run, {9, 5}, 4, 4340)) * (1.0F + 0.10F * grain);
    return {Mix(bronze, green, cover), 0.42F + 0.20F * cover * (1.0F + grain) + 0.04F * grain,
            Mix(0.9F, 0.08F, cover)};
}

Texel DiamondPlate(Point p)
{
    constexpr Grid kGrid{8, 8};
    const Square square = SquareAt(p, kGrid);
    const float lean = (square.across + square.down) % 2 == 0 ? 1.0F : -1.0F;
    const float along = (square.x + lean * square.y) * 0.7071F;
    const float across = (square.x - lean * square.y) * 0.7071F;
    // Two arcs that meet at both ends.
    const float lens = std::abs(across) / 0.115F + (along / 0.40F) * (along / 0.40F);
    const float tread = Smooth(1.05F, 0.62F, lens);
    const float wear = Fractal(Warped(p, {6, 6}, 0.03F, 4400), {6, 6}, 5, 4410);
    const float scratch = Scratches(p, 4420);
    const float dirt = Smooth(1.9F, 1.0F, lens) * (1.0F - tread);
    const Paint steel = Mix(Hex(0x85898D), Hex(0xB4B8BB), 0.45F + 0.4F * tread + 0.35F * wear);
    return {steel * (1.0F - 0.35F * dirt + 0.08F * scratch),
            0.25F + 0.42F * tread - 0.04F * scratch,
            std::clamp(0.55F + 0.45F * tread + 0.3F * wear - 0.4F * dirt, 0.0F, 1.0F)};
}

Texel DamascusSteel(Point p)
{
    const Point q = Warped(p, {3, 3}, 0.07F, 4500, 4);
    const Cell ladder = Cells(q, {5, 4}, 4510);
    const float layers = 30.0F * q.v + 3.6F * ladder.centre + 3.0F * Fractal(q, {4, 4}, 3, 4520);
    const float bands = 0.5F + 0.5F * std::sin(kTurn * layers);
    const float fine = 0.5F + 0.5F * std::sin(kTurn * layers * 2.0F + 1.0F);
    const float tone = Smooth(0.15F, 0.85F, bands) * 0.75F + 0.25F * fine;
    const float grain = Noise(p, {160, 160}, 4530);
    return {Mix(Hex(0x3A3E43), Hex(0xC3C7CB), tone) * (1.0F + 0.04F * grain), 0.42F + 0.16F * tone,
            0.45F + 0.55F * tone};
}

Texel GalvanizedSteel(Point p)
{
    const Point q = Warped(p, {10, 10}, 0.018F, 4600, 3);
    const Cell spangle = Cells(q, {11, 11}, 4610);
    const Cell inner = Cells(q, {24, 24}, 4620);
    const float turn = spangle.random * kTurn;
    const float feather =
        Noise(p, {70, 70}, 4630) * (0.5F + 0.5F * Wave(p.u, std::round(16.0F * std::cos(turn)),
                                                       p.v * std::round(16.0F * std::sin(turn))));
    const float tone = 0.62F * spangle.random + 0.28F * inner.random + 0.15F * feather;
    return {Mix(Hex(0x8D959B), Hex(0xCBD1D4), tone), 0.5F, 0.35F + 0.6F * tone};
}

Texel PerforatedSteel(Point p)
{
    const Square hole = StaggeredAt(p, {12, 14});
    const float distance = std::hypot(hole.x, hole.y * 12.0F / 14.0F);
    const float edge = Smooth(0.345F, 0.30F, distance);
    const float rim = Smooth(0.42F, 0.345F, distance);
    const float lines = Brushing(p, 4700);
    const Paint steel = Hex(0xAEB2B6) * (1.0F + 0.08F * lines + 0.06F * rim);
    return {steel, 0.5F - 0.10F * rim + 0.04F * lines, 0.8F, 1.0F - edge};
}

Texel GoldLeaf(Point p)
{
    constexpr Grid kSheets{3, 3};
    const Point q = Warped(p, {5, 5}, 0.012F, 4800, 4);
    const Square sheet = SquareAt(q, kSheets);
    const float edge = 0.5F - std::max(std::abs(sheet.x), std::abs(sheet.y));
    const float overlap = Smooth(0.035F, 0.020F, edge);
    const float crinkle = Fractal(Warped(p, {9, 9}, 0.03F, 4810, 4), {9, 9}, 5, 4820);
    const float crack =
        Veins(q, {6, 6}, 4, 30.0F, 4830) * Smooth(0.15F, 0.5F, Noise(p, {4, 4}, 4840));
    const float tone = 0.45F + 0.25F * Chance(sheet.across, sheet.down, kSheets, 4850) +
                       0.35F * crinkle + 0.15F * overlap;
    Paint colour = Mix(Hex(0xB98322), Hex(0xF6D57C), tone);
    colour = Mix(colour, Hex(0x7A2E1A), 0.75F * crack);
    return {colour, 0.45F + 0.22F * crinkle + 0.10F * overlap - 0.12F * crack, 1.0F - 0.8F * crack};
}

}  // namespace media
