#include "Textures.h"

#include "Field.h"

#include <array>

namespace media {

Texel DesertSand(Point p)
{
    const Point q = Warped(p, {3, 3}, 0.055F, 8000, 3);
    const float phase = 14.0F * q.v + 0.9F * Noise(q, {3, 4}, 8010);
    const float across = Fraction(phase);
    // Long windward sides, short lee sides.
    const float ripple = across < 0.68F ? Smooth(0.0F, 0.68F, across) : Smooth(1.0F, 0.68F, across);
    const float strength = 0.55F + 0.45F * Noise(q, {4, 5}, 8020);
    const float grain = Noise(p, {200, 200}, 8030);
    const float height = 0.30F + 0.42F * ripple * strength;
    const Paint sand = Mix(Hex(0xB88A57), Hex(0xE9CB98), 0.35F + 0.8F * (height - 0.3F));
    return {sand * (1.0F + 0.07F * grain), height + 0.02F * grain, 0.5F + 0.5F * grain};
}

Texel WaterRipples(Point p)
{
    const Point q = Warped(p, {3, 3}, 0.06F, 8100, 3);
    const float swell = Fractal(q, {4, 6}, 3, 8110);
    const float chop = Veins(Warped(q, {6, 6}, 0.04F, 8120), {7, 9}, 2, 2.2F, 8130);
    const float height = std::clamp(0.42F + 0.34F * swell + 0.24F * (chop - 0.5F), 0.0F, 1.0F);
    const Cell lens = Cells(Warped(p, {7, 7}, 0.045F, 8140, 3), {7, 7}, 8150);
    const Cell small = Cells(Warped(p, {11, 11}, 0.03F, 8160, 3), {12, 12}, 8170);
    const float net = std::pow(1.0F - std::min(1.0F, 2.0F * lens.border), 5.0F) +
                      0.5F * std::pow(1.0F - std::min(1.0F, 2.0F * small.border), 5.0F);
    const Paint deep = Mix(Hex(0x0D4A66), Hex(0x2F9DB0), height);
    return {Mix(deep, Hex(0xCFF3F0), std::min(1.0F, 0.62F * net)), height};
}

Texel Lava(Point p)
{
    constexpr std::array kHeat{Hex(0x140D0C), Hex(0x2A1512), Hex(0x7A1607),
                               Hex(0xE0480B), Hex(0xFFB52B), Hex(0xFFF2B0)};
    const Point q = Warped(p, {5, 5}, 0.05F, 8200, 4);
    const Cell crust = Cells(q, {6, 6}, 8210);
    const Cell chip = Cells(q, {15, 15}, 8220);
    const float glow = Smooth(0.13F, 0.0F, crust.border + 0.035F * Fractal(p, {20, 20}, 3, 8230));
    const float faint =
        0.55F * Smooth(0.07F, 0.0F, chip.border) * Smooth(0.35F, 0.05F, crust.border);
    const float rough = Fractal(q, {22, 22}, 4, 8240);
    const float heat = std::max(glow, faint);
    return {Ramp(kHeat, 0.08F + 0.08F * rough + 0.86F * heat),
            0.62F - 0.45F * glow + 0.12F * rough * (1.0F - glow), 1.0F - heat};
}

Texel Moss(Point p)
{
    const Point q = Warped(p, {9, 9}, 0.02F, 8300, 3);
    const Cell tuft = Cells(q, {18, 18}, 8310);
    const Cell leaf = Cells(Warped(p, {40, 40}, 0.006F, 8320), {64, 64}, 8330);
    const float cushion = 1.0F - std::min(1.0F, tuft.centre * 1.15F);
    const float tip = 1.0F - std::min(1.0F, leaf.centre * 1.4F);
    const float height = 0.55F * cushion + 0.35F * tip;
    const float dry = Smooth(0.1F, 0.6F, Fractal(p, {4, 4}, 4, 8340));
    const Paint green = Mix(Hex(0x2B3D14), Hex(0x8FA83E), 0.15F + 0.9F * height);
    const Paint tired = Mix(green, Hex(0x9A8F4A), 0.45F * dry);
    return {tired * (0.72F + 0.40F * tip + 0.14F * leaf.random), 0.10F + 0.75F * height};
}

Texel Cork(Point p)
{
    const Point q = Warped(p, {20, 20}, 0.010F, 8400, 3);
    const Cell crumb = Cells(q, {26, 26}, 8410);
    const Cell fine = Cells(q, {60, 60}, 8420);
    const float gap = Smooth(0.05F, 0.0F, crumb.border);
    const float dark = Smooth(0.86F, 0.92F, fine.random) * Smooth(0.0F, 0.1F, fine.border);
    const float rough = Fractal(p, {60, 60}, 3, 8430);
    Paint colour = Mix(Hex(0xB07C48), Hex(0xDDB27B), crumb.random * 0.75F + fine.random * 0.25F);
    colour = Mix(colour * (1.0F + 0.12F * rough), Hex(0x5A381C), 0.45F * gap + 0.55F * dark);
    return {colour, 0.55F + 0.10F * crumb.random - 0.20F * gap - 0.18F * dark + 0.06F * rough};
}

Texel Frost(Point p)
{
    const Point q = Warped(p, {5, 5}, 0.03F, 8500, 4);
    const Cell crystal = Cells(q, {6, 6}, 8510);
    const float turn = std::floor(crystal.random * 6.0F);
    const Point along = turn < 2.0F   ? Point{p.u + p.v, p.v}
                        : turn < 4.0F ? Point{p.u - p.v, p.v}
                                      : Point{p.v, p.u};
    const float needles = Veins(Warped(along, {8, 8}, 0.02F, 8520), {44, 6}, 3, 3.0F, 8530);
    const float rim = Smooth(0.10F, 0.0F, crystal.border);
    const float ice = std::clamp(0.75F * needles + 0.30F * rim, 0.0F, 1.0F);
    return {Mix(Hex(0x9CC3DC), Hex(0xF6FBFE), ice), 0.35F + 0.30F * ice, 0.5F + 0.5F * ice};
}

Texel HandmadePaper(Point p)
{
    const float pulp = Fractal(p, {10, 10}, 5, 8600);
    const Point a = Warped(p, {5, 5}, 0.10F, 8610, 2);
    const Point b = Warped({p.v, p.u}, {4, 4}, 0.12F, 8620, 2);
    const float fibres =
        std::max(Veins(a, {6, 4}, 1, 60.0F, 8630) * Smooth(0.1F, 0.4F, Noise(p, {9, 9}, 8640)),
                 Veins(b, {5, 4}, 1, 60.0F, 8650) * Smooth(0.1F, 0.4F, Noise(p, {8, 8}, 8660)));
    const Cell petal = Cells(Warped(p, {12, 12}, 0.012F, 8670), {9, 9}, 8680);
    const float scrap = Smooth(0.17F, 0.13F, petal.centre) * (petal.random > 0.93F ? 1.0F : 0.0F);
    Paint colour = Mix(Hex(0xE9DFC8), Hex(0xF7F1E2), 0.5F + 0.6F * pulp);
    colour = Mix(colour, Hex(0xB59B6C), 0.55F * fibres);
    return {Mix(colour, Hex(0xC26A78), 0.55F * scrap), 0.45F + 0.12F * pulp + 0.10F * fibres};
}

Texel RubberGrain(Point p)
{
    const Cell nap = Cells(Warped(p, {20, 20}, 0.004F, 8700), {72, 72}, 8710);
    const float bead = Smooth(0.55F, 0.15F, nap.centre);
    const float dust = Fractal(p, {6, 6}, 4, 8720);
    return {Hex(0x2B2C2E) * (0.86F + 0.22F * bead + 0.12F * dust), 0.40F + 0.16F * bead,
            0.45F + 0.4F * bead};
}

}  // namespace media
