#include "Textures.h"

#include "Field.h"

#include <array>

namespace media {
namespace {

/// Around the circle of hues, 0 to 1, as light as pastel.
Paint Hue(float at, float strength)
{
    const auto part = [&](float phase) {
        return 1.0F - strength * (0.5F - 0.5F * std::cos(kTurn * (at + phase)));
    };
    return {part(0.0F), part(0.333F), part(0.667F)};
}

/// A grid of diamonds on their tips, each cut into four flat faces that rise to its middle.
struct Facet {
    float height;  ///< 0 on the girdle to 1 in the middle
    float tone;    ///< 0 to 1, the face's own
    float edge;    ///< distance to the nearest edge of the face, in diamonds
};

Facet FacetAt(Point p, Grid grid, Seed seed)
{
    // A grid that stands upright after a turn by an eighth.
    const Point turned{p.u * static_cast<float>(grid.across) + p.v * static_cast<float>(grid.down),
                       p.v * static_cast<float>(grid.down) - p.u * static_cast<float>(grid.across)};
    const float x = Fraction(turned.u) - 0.5F;
    const float y = Fraction(turned.v) - 0.5F;
    const bool sideways = std::abs(x) > std::abs(y);
    const int side = sideways ? (x > 0.0F ? 0 : 1) : (y > 0.0F ? 2 : 3);
    // One tile on, the first sum grows by twice the grid's width and the second stays, or the
    // other way round.
    const int along = static_cast<int>(std::floor(turned.u));
    const int down = static_cast<int>(std::floor(turned.v));
    const float tone =
        Chance(4 * (along - down) + side, along + down, {8 * grid.across, 2 * grid.down}, seed);
    const float far = std::max(std::abs(x), std::abs(y));
    const float near = std::min(std::abs(x), std::abs(y));
    return {1.0F - 2.0F * far, tone, std::min(0.5F - far, 0.7071F * (far - near))};
}

}  // namespace

Texel Facets(Point p)
{
    const Facet large = FacetAt(p, {7, 7}, 2800);
    const Facet deep = FacetAt({p.u + 0.031F, p.v + 0.017F}, {11, 11}, 2810);
    const float light =
        0.50F + 0.42F * large.tone + 0.30F * (deep.tone - 0.35F) + 0.10F * (large.height - 0.5F);
    const float edge = Smooth(0.035F, 0.010F, large.edge);
    return {Mix(Paint{light, light, light}, Paint{1.0F, 1.0F, 1.0F}, 0.35F * edge),
            0.15F + 0.62F * large.height};
}

Texel Lapis(Point p)
{
    constexpr std::array kBlues{Hex(0x0E1A4C), Hex(0x18307C), Hex(0x2647A0), Hex(0x4468B4)};
    const Point q = Warped(p, {4, 4}, 0.08F, 2000, 4);
    const float tone = 0.42F + 0.55F * Fractal(q, {5, 5}, 5, 2010);
    const float calcite = Smooth(0.12F, 0.70F, Fractal(q, {3, 4}, 6, 2020));
    const float trail = Smooth(-0.15F, 0.5F, Veins(q, {3, 2}, 3, 5.0F, 2030) - 0.35F);
    const Cell fleck = Cells(Warped(p, {60, 60}, 0.006F, 2040), {84, 84}, 2050);
    const float share = 0.22F * trail;
    const float size = 0.16F + 0.34F * fleck.random / std::max(share, 0.01F);
    const float pyrite =
        Smooth(size, 0.6F * size, fleck.centre) * Smooth(share, share - 0.02F, fleck.random);
    Paint colour = Mix(Ramp(kBlues, tone), Hex(0xB9C4DE), 0.62F * calcite);
    colour = Mix(colour, Hex(0xE2C065), pyrite);
    return {colour, 0.5F, 0.6F + 0.4F * pyrite};
}

Texel Malachite(Point p)
{
    constexpr std::array kBands{Hex(0x07362A), Hex(0x0E5B43), Hex(0x178A61), Hex(0x4DB98A),
                                Hex(0x1A7653), Hex(0x0B4A37), Hex(0x8AD9B4)};
    const Point q = Warped(p, {4, 4}, 0.05F, 2100, 3);
    const Cell eye = Cells(q, {3, 3}, 2110);
    const float rings = eye.centre * 7.0F + 1.3F * Fractal(p, {3, 3}, 3, 2120) + eye.random * 9.0F;
    const float coarse = 0.5F + 0.5F * std::sin(rings * 2.3F);
    const float fine = 0.5F + 0.5F * std::sin(rings * 9.0F + 2.0F * coarse);
    const float tone = 0.15F + 0.55F * coarse + 0.22F * fine;
    return {Ramp(kBands, tone) * (1.0F + 0.05F * Noise(p, {60, 60}, 2130))};
}

Texel Agate(Point p)
{
    constexpr std::array kBands{Hex(0x4A1F14), Hex(0x8E3B1C), Hex(0xC9682B), Hex(0xE8A860),
                                Hex(0xF4E3CC), Hex(0xB9765A), Hex(0x6E2A1B), Hex(0xEBC9A1)};
    const Point q = Warped(p, {3, 3}, 0.08F, 2200, 4);
    const float depth = Fractal(q, {2, 2}, 3, 2210);
    const float bands = depth * 5.0F + 0.10F * Fractal(p, {9, 9}, 3, 2220);
    const float slow = 0.5F + 0.5F * std::sin(bands * 3.1F);
    const float quick = 0.5F + 0.5F * std::sin(bands * 17.0F);
    const float hair = 0.5F + 0.5F * std::sin(bands * 41.0F);
    return {Ramp(kBands, 0.66F * slow + 0.22F * quick + 0.10F * hair)};
}

Texel Jade(Point p)
{
    constexpr std::array kGreens{Hex(0x2F6E4A), Hex(0x4F9468), Hex(0x77B589), Hex(0xA9D3B0)};
    const Point q = Warped(p, {3, 3}, 0.13F, 2300, 5);
    const float cloud = 0.45F + 0.55F * Fractal(q, {3, 4}, 5, 2310);
    const float fibre = Fractal(q, {12, 40}, 3, 2320);
    const float pale = Veins(q, {2, 3}, 4, 11.0F, 2330);
    return {Mix(Ramp(kGreens, cloud + 0.10F * fibre), Hex(0xC6E2C6), 0.22F * pale)};
}

Texel Turquoise(Point p)
{
    const Point q = Warped(p, {9, 9}, 0.022F, 2400, 4);
    const Cell nugget = Cells(q, {8, 8}, 2410);
    const Cell chip = Cells(q, {19, 19}, 2420);
    const float lines = Smooth(-0.25F, 0.35F, Noise(p, {4, 4}, 2430));
    const float matrix = std::max(Smooth(0.055F, 0.012F, nugget.border),
                                  lines * Smooth(0.050F, 0.010F, chip.border));
    const float tone =
        0.4F * nugget.random + 0.25F * chip.random + 0.3F * Fractal(q, {10, 10}, 3, 2440);
    Paint colour = Mix(Hex(0x1F9C9A), Hex(0x6FD0C6), tone);
    colour = Mix(colour, Hex(0x3A2A1C), 0.88F * matrix);
    return {colour, 0.60F - 0.12F * matrix, 1.0F - 0.7F * matrix};
}

Texel TigersEye(Point p)
{
    constexpr std::array kSilk{Hex(0x1E0F06), Hex(0x53290C), Hex(0x95560F), Hex(0xD29A34),
                               Hex(0xF1CF7C), Hex(0xB87820), Hex(0x6A370F)};
    const Point q = Warped(p, {2, 3}, 0.05F, 2500, 4);
    const float band = 0.5F + 0.62F * Fractal(q, {1, 6}, 4, 2510);
    const float fibre = Fractal({q.u + 0.15F * band, q.v}, {70, 5}, 3, 2520);
    const float light = 0.5F + 0.5F * Noise(Warped(q, {8, 3}, 0.04F, 2530), {3, 7}, 2540);
    return {Ramp(kSilk, band + 0.16F * fibre) * (0.78F + 0.38F * light), 0.5F + 0.1F * fibre,
            0.45F + 0.55F * light};
}

Texel Opal(Point p)
{
    const Point q = Warped(p, {8, 8}, 0.025F, 2600, 3);
    const Cell patch = Cells(q, {8, 8}, 2610);
    const Cell flake = Cells(q, {21, 21}, 2620);
    const float milk = 0.5F + 0.5F * Fractal(Warped(p, {3, 3}, 0.1F, 2640, 4), {3, 3}, 5, 2630);
    const float hue =
        0.42F + 0.40F * Noise(p, {3, 3}, 2650) + 0.26F * patch.random + 0.10F * flake.random;
    const float fire = (0.35F + 0.65F * Smooth(0.0F, 0.16F, patch.border)) *
                       (0.30F + 0.70F * Smooth(0.2F, 0.9F, flake.random)) *
                       Smooth(0.25F, 0.75F, milk + 0.25F * patch.random);
    const Paint body = Mix(Hex(0xE4E8EE), Hex(0xA9C4DC), milk);
    return {Mix(body, Hue(hue, 0.78F), 0.85F * fire), 0.5F, 0.5F + 0.5F * fire};
}

Texel Amber(Point p)
{
    constexpr std::array kHoney{Hex(0x8A3B06), Hex(0xC66A0C), Hex(0xE9971F), Hex(0xF8C14E)};
    const Point q = Warped(p, {3, 3}, 0.10F, 2700, 4);
    const float cloud = 0.5F + 0.6F * Fractal(q, {3, 3}, 4, 2710);
    const Cell bubble = Cells(p, {22, 22}, 2720);
    const float ring = Smooth(0.05F, 0.0F, std::abs(bubble.centre - 0.16F * bubble.random)) *
                       (bubble.random > 0.72F ? 1.0F : 0.0F);
    const Cell shred = Cells(Warped(p, {9, 9}, 0.03F, 2730), {16, 34}, 2740);
    const float dark = Smooth(0.36F, 0.16F, shred.centre) * (shred.random < 0.012F ? 1.0F : 0.0F);
    Paint colour = Mix(Ramp(kHoney, cloud), Hex(0xFFE19A), 0.6F * ring);
    return {Mix(colour, Hex(0x4A2106), 0.7F * dark)};
}

}  // namespace media
