#include "Textures.h"

#include "Field.h"

#include <array>

namespace media {
namespace {

struct WoodKind {
    std::array<Paint, 4> tones;  ///< from the early to the late wood of a year
    Paint pore;
    int rings;        ///< years across a tile
    float arches;     ///< years by which the grain wanders
    float poreShare;  ///< 0 to 1
    float rayShare;   ///< of light flecks across the grain
    Seed seed;
};

/// How far through its year the wood is, 0 to 1; boards run from top to bottom.
float YearAt(Point p, const WoodKind& kind)
{
    const float wander = kind.arches * (1.1F * Noise(p, {2, 1}, kind.seed + 1) +
                                        0.35F * Noise(p, {5, 2}, kind.seed + 2) +
                                        0.06F * Fractal(p, {24, 4}, 2, kind.seed + 3));
    return Fraction(p.u * static_cast<float>(kind.rings) + wander);
}

/// Short dark strokes along the grain, mostly in the early wood.
float PoresAt(Point p, const WoodKind& kind, float year)
{
    const Cell coarse = Cells(p, {150, 14}, kind.seed + 10);
    const Cell fine = Cells({p.u, p.v + p.u}, {230, 24}, kind.seed + 11);
    const float early = 0.35F + 0.65F * Smooth(0.55F, 0.05F, year);
    const float first =
        Smooth(0.40F, 0.12F, coarse.centre) * (coarse.random < 0.8F * early ? 1.0F : 0.0F);
    const float second =
        Smooth(0.42F, 0.15F, fine.centre) * (fine.random < 0.5F * early ? 0.7F : 0.0F);
    return kind.poreShare * std::max(first, second);
}

Texel Wood(Point p, const WoodKind& kind)
{
    const float year = YearAt(p, kind);
    const float late = Smooth(0.12F, 0.86F, year) * Smooth(1.0F, 0.93F, year);
    const float fibre = Fractal(p, {130, 5}, 3, kind.seed + 20);
    const float board = Fractal(p, {3, 1}, 3, kind.seed + 30);
    const float pores = PoresAt(p, kind, year);
    const Cell ray = Cells(Warped(p, {6, 10}, 0.01F, kind.seed + 40), {34, 70}, kind.seed + 41);
    const float fleck =
        kind.rayShare * Smooth(0.34F, 0.10F, ray.centre) * (ray.random > 0.70F ? 1.0F : 0.0F);
    Paint colour = Ramp(kind.tones, 0.10F + 0.62F * late + 0.16F * board + 0.13F * fibre);
    colour = Mix(colour, kind.tones[0] * 1.10F, 0.45F * fleck);
    colour = Mix(colour, kind.pore, 0.75F * pores);
    return {colour * (1.0F + 0.05F * fibre), 0.60F - 0.30F * pores - 0.07F * late + 0.06F * fibre,
            1.0F - 0.6F * pores};
}

constexpr WoodKind kOak{{Hex(0xD9B681), Hex(0xC49A62), Hex(0xAD8049), Hex(0x8F6636)},
                        Hex(0x5C3E20),
                        10,
                        1.9F,
                        0.85F,
                        0.8F,
                        3000};
constexpr WoodKind kWalnut{{Hex(0x8A6443), Hex(0x6E4B30), Hex(0x533623), Hex(0x3A2418)},
                           Hex(0x22140C),
                           9,
                           2.1F,
                           0.7F,
                           0.0F,
                           3100};
constexpr WoodKind kCherry{{Hex(0xC98655), Hex(0xB66E42), Hex(0xA25B36), Hex(0x86452A)},
                           Hex(0x6A3420),
                           8,
                           1.6F,
                           0.25F,
                           0.35F,
                           3200};
constexpr WoodKind kEbony{{Hex(0x3B302A), Hex(0x2A221F), Hex(0x1E1816), Hex(0x120E0D)},
                          Hex(0x080606),
                          13,
                          1.5F,
                          0.6F,
                          0.0F,
                          3300};
constexpr WoodKind kPine{{Hex(0xEBCD97), Hex(0xE2BB7C), Hex(0xCF9A58), Hex(0xB47A3E)},
                         Hex(0xA8703C),
                         8,
                         1.2F,
                         0.0F,
                         0.0F,
                         3400};

/// Grain of pine runs around the places where branches were.
Point AroundKnot(Point p, const Cell& knot)
{
    const float pull = 0.10F * std::exp(-knot.centre * knot.centre * 30.0F);
    return {p.u + pull * (knot.random > 0.5F ? 1.0F : -1.0F), p.v};
}

struct Board {
    Point grain;  ///< where in the wood it was cut
    float edge;   ///< distance to its border, in tiles
    float tone;   ///< 0 to 1
};

/// Strips laid in a basket pattern, five to a square.
Board ParquetAt(Point p)
{
    constexpr Grid kSquares{4, 4};
    const Square square = SquareAt(p, kSquares);
    const bool upright = (square.across + square.down) % 2 == 0;
    const float across = (upright ? square.x : square.y) + 0.5F;
    const float along = (upright ? square.y : square.x) + 0.5F;
    const float strip = std::floor(across * 5.0F);
    const float inStrip = across * 5.0F - strip;
    const float edge =
        std::min(std::min(inStrip, 1.0F - inStrip) / 5.0F, std::min(along, 1.0F - along)) / 4.0F;
    const int name = square.across * 97 + square.down * 31 + static_cast<int>(strip) * 7;
    const float tone = Chance(name, 3, {997, 997}, 3510);
    return {{tone * 7.0F + across / 5.0F, Chance(name, 5, {997, 997}, 3520) + along * 0.3F},
            edge,
            tone};
}

}  // namespace

Texel Oak(Point p)
{
    return Wood(p, kOak);
}

Texel Walnut(Point p)
{
    return Wood(p, kWalnut);
}

Texel Cherry(Point p)
{
    return Wood(p, kCherry);
}

Texel Ebony(Point p)
{
    return Wood(p, kEbony);
}

Texel Pine(Point p)
{
    const Cell knot = Cells(p, {2, 1}, 3450);
    Texel texel = Wood(AroundKnot(p, knot), kPine);
    const Point q = Warped(p, {12, 12}, 0.006F, 3460);
    const Cell core = Cells({q.u, q.v}, {2, 1}, 3450);
    const float inKnot = Smooth(0.085F, 0.055F, core.centre);
    const float rings = 0.5F + 0.5F * std::sin(core.centre * 260.0F);
    texel.colour = Mix(texel.colour, Mix(Hex(0x6B3D1C), Hex(0x9A5F2E), rings), 0.92F * inKnot);
    texel.colour = texel.colour * (1.0F - 0.25F * Smooth(0.16F, 0.07F, core.centre));
    return texel;
}

Texel Parquet(Point p)
{
    const Board board = ParquetAt(p);
    WoodKind strip = kOak;
    strip.poreShare = 0.45F;
    Texel texel = Wood(board.grain, strip);
    const float gap = Smooth(0.0030F, 0.0008F, board.edge);
    const float bevel = Smooth(0.0F, 0.0055F, board.edge);
    texel.colour = texel.colour * (0.80F + 0.30F * board.tone);
    texel.colour = Mix(texel.colour, Hex(0x2A1A0E), 0.85F * gap);
    texel.height = 0.25F + 0.35F * bevel + 0.15F * (texel.height - 0.5F);
    texel.shine *= 1.0F - 0.8F * gap;
    return texel;
}

Texel Bark(Point p)
{
    const Point q = Warped(p, {6, 3}, 0.045F, 3600, 4);
    const Cell plate = Cells(q, {9, 4}, 3610);
    const Cell scale = Cells(Warped(q, {18, 9}, 0.012F, 3620), {22, 12}, 3630);
    const float body = Smooth(0.0F, 0.20F, plate.border);
    const float flakes = Smooth(0.0F, 0.16F, scale.border);
    const float rough = Fractal(q, {26, 9}, 5, 3640);
    const float height = 0.78F * body * (0.72F + 0.28F * flakes) + 0.14F * rough;
    const Paint wood = Mix(Hex(0x54412F), Hex(0x8C7A66),
                           0.35F * plate.random + 0.35F * scale.random + 0.25F * flakes);
    const Paint moss =
        Mix(wood, Hex(0x6C7440), 0.45F * Smooth(0.15F, 0.6F, Noise(p, {4, 3}, 3650)));
    return {Mix(Hex(0x1E1611), moss, Smooth(0.05F, 0.55F, height)) * (1.0F + 0.22F * rough),
            0.08F + 0.85F * height};
}

}  // namespace media
