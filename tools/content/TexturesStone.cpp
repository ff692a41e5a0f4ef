#include "Textures.h"

#include "Field.h"

#include <array>

namespace media {
namespace {

struct GraniteKind {
    Paint feldspar;
    Paint paleFeldspar;
    Paint quartz;
    Paint mica;
    float micaShare;  ///< of the grains
    Seed seed;
};

Texel Granite(Point p, const GraniteKind& kind)
{
    const Point q = Warped(p, {40, 40}, 0.008F, kind.seed, 3);
    const Cell grain = Cells(q, {24, 24}, kind.seed + 3);
    const Cell mica = Cells(q, {62, 62}, kind.seed + 7);
    const Cell speck = Cells(q, {120, 120}, kind.seed + 11);
    const float cloud = Noise(p, {5, 5}, kind.seed + 13);
    const Paint mineral = grain.random < 0.62F ? Mix(kind.feldspar, kind.paleFeldspar,
                                                     Smooth(0.1F, 0.55F, grain.random))
                                               : kind.quartz;
    const Paint mean = Mix(kind.feldspar, kind.quartz, 0.5F);
    Paint colour = Mix(mean, mineral, Smooth(-0.02F, 0.10F, grain.border));
    colour = colour * (1.0F + 0.13F * Fractal(p, {60, 60}, 3, kind.seed + 17));
    const float share = kind.micaShare * (1.0F + 0.8F * cloud);
    const float dark = Smooth(0.0F, 0.12F, mica.border) * Smooth(share, share - 0.03F, mica.random);
    colour = Mix(colour, kind.mica * (0.8F + 0.5F * speck.random), 0.93F * dark);
    return {Mix(colour, kind.mica, speck.random > 0.93F ? 0.6F : 0.0F)};
}

}  // namespace

Texel GreyGranite(Point p)
{
    return Granite(p, {Hex(0xA9A8A6), Hex(0xD6D3CE), Hex(0x7E8083), Hex(0x24252A), 0.27F, 1000});
}

Texel RoseGranite(Point p)
{
    return Granite(p, {Hex(0xB4796A), Hex(0xD9A995), Hex(0x8C8284), Hex(0x2A2224), 0.20F, 1100});
}

Texel BluePearlGranite(Point p)
{
    return Granite(p, {Hex(0x35414F), Hex(0x6E8CA8), Hex(0x232A33), Hex(0x11141A), 0.42F, 1200});
}

Texel WhiteMarble(Point p)
{
    const Point aslant{p.u + p.v, p.v};
    const Point q = Warped(aslant, {2, 2}, 0.20F, 1300, 5);
    const float cloud = Fractal(q, {3, 2}, 5, 1310);
    const float veins = Veins(q, {2, 1}, 5, 14.0F, 1320);
    const float fine = Veins(Warped(aslant, {5, 5}, 0.07F, 1330, 3), {5, 3}, 4, 26.0F, 1340);
    const float strength = Smooth(-0.45F, 0.5F, Noise(p, {3, 3}, 1350));
    Paint colour = Mix(Hex(0xF2F0EC), Hex(0xC4C7CC), Smooth(-0.05F, 0.65F, cloud));
    colour = Mix(colour, Hex(0x80868F), 0.62F * veins * strength);
    colour = Mix(colour, Hex(0x8D8F93), 0.45F * fine * Smooth(0.9F, 0.2F, strength));
    return {colour * (1.0F + 0.02F * Noise(p, {128, 128}, 1360))};
}

Texel BlackMarble(Point p)
{
    const Point aslant{p.u, p.v + p.u};
    const Point q = Warped(aslant, {3, 3}, 0.16F, 1400, 5);
    const float gold = Veins(q, {2, 2}, 4, 38.0F, 1410);
    const float white = Veins(Warped(aslant, {4, 4}, 0.10F, 1420, 4), {4, 3}, 4, 60.0F, 1430);
    const float here = Smooth(-0.55F, 0.25F, Noise(p, {3, 3}, 1440));
    const float there = Smooth(-0.3F, 0.4F, Noise(p, {4, 4}, 1450));
    Paint colour =
        Mix(Hex(0x111214), Hex(0x26272A), Smooth(-0.3F, 0.8F, Fractal(q, {4, 4}, 4, 1460)));
    colour = Mix(colour, Hex(0xB98A45), gold * (0.2F + 0.8F * here));
    return {Mix(colour, Hex(0xD9D5CB), white * there * 0.85F)};
}

Texel GreenMarble(Point p)
{
    constexpr std::array kGreens{Hex(0x0F2A20), Hex(0x1B4534), Hex(0x2E6A4E), Hex(0x5E9677)};
    const Point q = Warped(p, {4, 4}, 0.09F, 1500, 4);
    const Cell shard = Cells(q, {6, 6}, 1510);
    const Cell splinter = Cells(q, {15, 15}, 1520);
    const float tone = 0.42F * shard.random + 0.25F * splinter.random +
                       0.45F * Fractal(q, {8, 8}, 4, 1530) + 0.12F;
    Paint colour = Ramp(kGreens, tone);
    const float seam =
        Smooth(0.075F, 0.0F, shard.border) * Smooth(-0.3F, 0.4F, Noise(p, {5, 5}, 1540));
    const float hair = Veins(q, {5, 5}, 4, 42.0F, 1550);
    colour = Mix(colour, Hex(0xCFE0D2), 0.72F * seam);
    return {Mix(colour, Hex(0xA9C9B4), 0.55F * hair)};
}

Texel Travertine(Point p)
{
    constexpr std::array kBands{Hex(0xBFA786), Hex(0xD5C1A2), Hex(0xE4D6BD), Hex(0xCDB596),
                                Hex(0xDFCEB2)};
    const Point q = Warped(p, {3, 4}, 0.03F, 1600, 4);
    const float band = 0.5F + 0.55F * Fractal(q, {2, 14}, 5, 1610);
    const Cell pore = Cells(Warped(q, {24, 40}, 0.012F, 1620, 3), {17, 46}, 1630);
    const float where = Smooth(0.12F, 0.45F, Noise(q, {3, 11}, 1640));
    const float size = 0.12F + 0.34F * pore.random * pore.random;
    const float pit = Smooth(size, 0.4F * size, pore.centre) * where;
    const float grain = Fractal(p, {70, 70}, 2, 1650);
    const Paint colour = Ramp(kBands, band) * (1.0F + 0.06F * grain);
    return {Mix(colour, Hex(0x7D6547), 0.75F * pit), 0.62F - 0.34F * pit + 0.03F * grain};
}

Texel Slate(Point p)
{
    constexpr std::array kTones{Hex(0x2E353B), Hex(0x434C53), Hex(0x55606A), Hex(0x4B4F55)};
    const Point q = Warped(p, {6, 6}, 0.05F, 1700, 4);
    const float relief = 4.0F + 3.2F * Fractal(q, {3, 4}, 5, 1710);
    const float step = std::floor(relief);
    const float cliff = Smooth(0.0F, 0.16F, relief - step);
    const float height = (step + cliff) / 8.0F;
    const float grain = Fractal(q, {24, 90}, 3, 1720);
    const Paint colour = Ramp(kTones, 0.15F + height + 0.30F * Noise(q, {5, 5}, 1730));
    const float edge = cliff * (1.0F - cliff) * 4.0F;
    return {colour * (1.0F + 0.10F * grain + 0.22F * edge), 0.10F + 0.70F * height + 0.05F * grain,
            0.55F + 0.3F * grain};
}

Texel Sandstone(Point p)
{
    constexpr std::array kStrata{Hex(0xA9734A), Hex(0xC99567), Hex(0xDDB488),
                                 Hex(0xB98055), Hex(0xD4A576), Hex(0xE3C197)};
    const Point q = Warped(p, {2, 2}, 0.07F, 1800, 4);
    const float strata = 0.5F + 0.45F * Fractal({q.u, q.v}, {1, 9}, 4, 1810) +
                         0.10F * Wave(q.v + 0.3F * Wave(q.u, 1.0F) * 0.05F, 22.0F);
    const float grain = 0.6F * Noise(p, {190, 190}, 1820) + 0.5F * Noise(p, {95, 95}, 1830);
    return {Ramp(kStrata, strata) * (1.0F + 0.09F * grain), 0.5F + 0.12F * grain + 0.22F * strata};
}

Texel Terrazzo(Point p)
{
    constexpr std::array kChips{Hex(0xB65B45), Hex(0x3F5B63), Hex(0xD9A24B), Hex(0xF2EDE4),
                                Hex(0x7C8C7A), Hex(0x2D2F33), Hex(0xC9B8A4)};
    const Point q = Warped(p, {14, 14}, 0.010F, 1900, 2);
    Paint colour = Hex(0xE3DFD6) * (1.0F + 0.03F * Noise(p, {120, 120}, 1910));
    for (const int size : {56, 30, 13}) {
        const Cell chip = Cells(q, {size, size}, 1920 + static_cast<Seed>(size));
        const float inside = Smooth(0.10F, 0.14F, chip.border - 0.25F * chip.random * chip.random);
        const float present = chip.random < 0.62F ? 1.0F : 0.0F;
        const auto kind = static_cast<std::size_t>(chip.random / 0.62F * 97.0F) % kChips.size();
        const float tone = 1.0F + 0.08F * Fractal(p, {40, 40}, 2, 1990);
        colour = Mix(colour, kChips[kind] * tone, inside * present);
    }
    return {colour};
}

}  // namespace media
