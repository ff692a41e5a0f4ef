#include "Textures.h"

#include "Field.h"

#include <array>

namespace media {

Texel CrackedGlaze(Point p)
{
    const Cell wide = Cells(Warped(p, {6, 6}, 0.020F, 6000, 3), {6, 6}, 6010);
    const Cell fine = Cells(Warped(p, {9, 9}, 0.012F, 6020, 3), {15, 15}, 6030);
    const float strong = Smooth(0.028F, 0.006F, wide.border);
    const float light = Smooth(0.040F, 0.010F, fine.border) * Smooth(0.0F, 0.3F, fine.random);
    const float halo = Smooth(0.16F, 0.0F, wide.border);
    const float pool = Fractal(Warped(p, {3, 3}, 0.06F, 6040), {3, 3}, 4, 6050);
    Paint colour = Mix(Hex(0xB9D6C6), Hex(0x86B3A2), 0.5F + 0.6F * pool);
    colour = Mix(colour, Hex(0x9FAE8C), 0.28F * halo);
    colour = Mix(colour, Hex(0x8B7350), 0.55F * light);
    return {Mix(colour, Hex(0x4F3824), 0.80F * strong), 0.55F - 0.08F * strong - 0.04F * light,
            1.0F - 0.5F * strong};
}

Texel Terracotta(Point p)
{
    const float wheel = Fractal({p.u, p.v}, {1, 40}, 3, 6100) +
                        0.4F * Fractal(Warped(p, {3, 8}, 0.01F, 6110), {2, 90}, 2, 6120);
    const float bloom =
        Smooth(0.05F, 0.65F, Fractal(Warped(p, {4, 4}, 0.07F, 6130, 4), {3, 4}, 5, 6140));
    const Cell grog = Cells(p, {80, 80}, 6150);
    const float speck = Smooth(0.30F, 0.15F, grog.centre);
    const float grain = Fractal(p, {90, 90}, 2, 6160);
    Paint colour = Mix(Hex(0xB4603A), Hex(0xCF7F52), 0.5F + 0.30F * wheel + 0.15F * grain);
    colour = Mix(colour, Hex(0xDDA987), 0.30F * bloom);
    if (grog.random > 0.86F) {
        colour = Mix(colour, Hex(0xEBC7A6), 0.5F * speck);
    } else if (grog.random < 0.10F) {
        colour = Mix(colour, Hex(0x5E2A18), 0.6F * speck);
    }
    return {colour, 0.5F + 0.13F * wheel + 0.05F * grain};
}

Texel PaintedTiles(Point p)
{
    constexpr Grid kTiles{4, 4};
    const Square tile = SquareAt(p, kTiles);
    const float x = std::abs(tile.x);
    const float y = std::abs(tile.y);
    const float r = std::hypot(tile.x, tile.y);
    const float angle = std::atan2(tile.y, tile.x);
    const float corner = std::hypot(x - 0.5F, y - 0.5F);
    const float brush = 0.012F * Noise(p, {60, 60}, 6200);
    const auto ink = [&](float distance) { return Smooth(0.012F, -0.006F, distance + brush); };
    const float star = 0.20F + 0.065F * std::cos(8.0F * angle);
    const float leaves = std::abs(r - 0.34F - 0.05F * std::cos(4.0F * angle)) - 0.016F;
    float dark = std::max({ink(r - star), ink(leaves), ink(std::abs(corner - 0.25F) - 0.014F)});
    dark = std::max(dark - ink(r - star + 0.055F), ink(r - 0.055F));
    const float petal =
        ink(corner - 0.16F - 0.03F * std::cos(8.0F * std::atan2(y - 0.5F, x - 0.5F)));
    const float gold = ink(std::hypot(x - 0.405F, std::min(y, 0.5F)) - 0.042F);
    const float wash = 0.75F + 0.5F * Fractal(p, {14, 14}, 4, 6210);
    const float edge = RoundedBox(tile.x, tile.y, 0.492F, 0.492F, 0.02F);
    const float grout = Smooth(-0.006F, 0.004F, edge);
    Paint colour = Hex(0xF1EEE4) * (0.97F + 0.05F * Noise(p, {9, 9}, 6220));
    colour = Mix(colour, Hex(0x23408F), std::clamp(dark * wash, 0.0F, 1.0F));
    colour = Mix(colour, Hex(0x5B83C4), std::clamp(0.9F * petal * wash, 0.0F, 1.0F));
    colour = Mix(colour, Hex(0xD9A33C), gold);
    return {Mix(colour, Hex(0x8E867A), grout), 0.62F - 0.28F * Smooth(-0.025F, 0.004F, edge),
            1.0F - 0.9F * grout};
}

Texel Mosaic(Point p)
{
    constexpr std::array kStones{Hex(0x12505C), Hex(0x1B7C86), Hex(0x3FA7A3),
                                 Hex(0x0F3550), Hex(0x2A5E9A), Hex(0xD9B25A)};
    constexpr Grid kGrid{20, 20};
    const Square stone = SquareAt(Warped(p, {10, 10}, 0.004F, 6300, 2), kGrid);
    const float tilt = Chance(stone.across, stone.down, kGrid, 6310);
    const float kind = Chance(stone.across, stone.down, kGrid, 6320);
    const float size = 0.40F + 0.05F * Chance(stone.across, stone.down, kGrid, 6330);
    const float edge = RoundedBox(stone.x, stone.y, size, size * (0.96F + 0.08F * tilt), 0.07F);
    const float body = Smooth(0.02F, -0.03F, edge);
    const float place = 0.5F + 0.75F * Noise({(static_cast<float>(stone.across) + 0.5F) / 20.0F,
                                              (static_cast<float>(stone.down) + 0.5F) / 20.0F},
                                             {3, 3}, 6340);
    const std::size_t index =
        kind > 0.90F ? 5
                     : std::min<std::size_t>(4, static_cast<std::size_t>(std::max(
                                                    0.0F, (place * 0.65F + kind * 0.5F) * 4.4F)));
    const Paint glass = kStones[index] * (0.84F + 0.34F * tilt + 0.06F * Noise(p, {90, 90}, 6350));
    const Paint mortar = Hex(0xC2B9A8) * (1.0F + 0.10F * Noise(p, {150, 150}, 6360));
    const float lean = (tilt - 0.5F) * stone.x + (kind - 0.5F) * stone.y;
    return {Mix(mortar, glass, body), 0.18F + body * (0.34F + 0.22F * lean),
            Mix(0.05F, 1.0F, body)};
}

Texel HexTiles(Point p)
{
    // Fourteen rows in the height of twelve columns come as close to regular as whole numbers do.
    constexpr Grid kGrid{12, 7};
    const Square even = SquareAt(p, kGrid);
    const Square odd = SquareAt({p.u + 0.5F / 12.0F, p.v + 0.5F / 7.0F}, kGrid);
    const auto reach = [](const Square& s) {
        const float x = std::abs(s.x);
        const float y = std::abs(s.y) * 1.7320F;
        return std::max(x, 0.5F * x + 0.8660F * y);
    };
    const bool first = reach(even) < reach(odd);
    const Square& tile = first ? even : odd;
    const float edge = reach(tile) - 0.455F;
    const float grout = Smooth(-0.012F, 0.006F, edge);
    const float tone = Chance(tile.across, tile.down, kGrid, first ? 6400 : 6410);
    const float flow = Fractal(p, {10, 10}, 4, 6420);
    const Paint glaze = tone > 0.84F ? Hex(0x2C5A66) : Mix(Hex(0xE9E4D8), Hex(0xD2D9D4), tone);
    return {Mix(glaze * (1.0F + 0.03F * flow), Hex(0x6F6A63), grout),
            0.66F - 0.26F * Smooth(-0.060F, 0.008F, edge), 1.0F - 0.92F * grout};
}

}  // namespace media
