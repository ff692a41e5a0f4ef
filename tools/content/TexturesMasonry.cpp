#include "Textures.h"

#include "Field.h"

#include <array>

namespace media {

Texel BrickWall(Point p)
{
    constexpr std::array kClay{Hex(0x6E2F22), Hex(0x8F4230), Hex(0xA8523A),
                               Hex(0xBD6A48), Hex(0x7B3B30), Hex(0x994E3A)};
    constexpr Grid kBond{4, 12};
    const Point q = Warped(p, {24, 24}, 0.0028F, 7000, 3);
    const Square brick = StaggeredAt(q, kBond);
    const float tone = Chance(brick.across, brick.down, kBond, 7010);
    const float edge = RoundedBox(brick.x * 3.0F, brick.y, 1.40F, 0.41F, 0.06F);
    const float body = Smooth(0.02F, -0.06F, edge);
    const float rough = Fractal(p, {40, 40}, 4, 7020);
    const Cell pit = Cells(p, {60, 60}, 7030);
    const float pitted = Smooth(0.32F, 0.1F, pit.centre) * (pit.random > 0.75F ? 1.0F : 0.0F);
    Paint clay = Ramp(kClay, tone) * (1.0F + 0.20F * rough - 0.3F * pitted);
    const float soot = Smooth(0.1F, 0.6F, Fractal(p, {4, 5}, 4, 7040));
    clay = Mix(clay, Hex(0x4A2E2A), 0.35F * soot);
    const Paint mortar = Hex(0xB9AE9D) * (0.93F + 0.16F * Fractal(p, {80, 80}, 3, 7050));
    const float lift = 0.08F * (tone - 0.5F);
    return {Mix(mortar, clay, body),
            0.22F + body * (0.46F + lift + 0.10F * rough - 0.12F * pitted) + 0.04F * rough};
}

Texel Cobblestones(Point p)
{
    const Point q = Warped(p, {10, 10}, 0.008F, 7100, 3);
    const Cell stone = Cells(q, {8, 8}, 7110);
    const float dome = std::sqrt(Smooth(0.035F, 0.40F, stone.border));
    const float body = Smooth(0.03F, 0.085F, stone.border);
    const float rough = Fractal(p, {30, 30}, 5, 7120);
    const Paint tint = Mix(Hex(0x6A6E73), Hex(0x958A7D), stone.random);
    const Paint rock = tint * (0.62F + 0.46F * dome) * (1.0F + 0.18F * rough);
    const float grass = Smooth(0.0F, 0.5F, Noise(p, {5, 5}, 7130));
    const Paint joint = Mix(Hex(0x3A332B), Hex(0x4C5A2E), 0.7F * grass) * (1.0F + 0.3F * rough);
    return {Mix(joint, rock, body), 0.04F + body * (0.12F + 0.74F * dome) + 0.06F * rough,
            body * (0.5F + 0.4F * rough)};
}

Texel Concrete(Point p)
{
    const float stain = Fractal(Warped(p, {3, 3}, 0.09F, 7200, 4), {3, 3}, 5, 7210);
    const float runs = Fractal(Warped(p, {8, 2}, 0.02F, 7220), {16, 2}, 3, 7230);
    const float grain = Fractal(p, {80, 80}, 3, 7240);
    const Cell bubble = Cells(Warped(p, {30, 30}, 0.003F, 7250), {26, 26}, 7260);
    const float size = 0.05F + 0.16F * Fraction(bubble.random * 31.0F);
    const float hole =
        Smooth(size, size - 0.06F, bubble.centre) * (bubble.random > 0.78F ? 1.0F : 0.0F);
    const float crack = Veins(Warped(p, {6, 6}, 0.05F, 7270, 4), {2, 2}, 4, 120.0F, 7280) *
                        Smooth(0.25F, 0.5F, Noise(p, {3, 3}, 7290));
    Paint colour = Mix(Hex(0x8E8C87), Hex(0xB9B6AF), 0.5F + 0.5F * stain + 0.12F * runs) *
                   (1.0F + 0.07F * grain);
    colour = Mix(colour, Hex(0x55534F), 0.75F * std::max(hole, 0.8F * crack));
    return {colour, 0.55F + 0.06F * grain - 0.32F * hole - 0.25F * crack + 0.06F * stain};
}

Texel Stucco(Point p)
{
    const Point q = Warped(p, {8, 8}, 0.035F, 7300, 4);
    const float trowel = Fractal(q, {9, 14}, 5, 7310);
    const float ridge = Veins(q, {7, 10}, 3, 4.0F, 7320);
    const float grain = Noise(p, {150, 150}, 7330);
    const float height = 0.42F + 0.36F * trowel + 0.16F * ridge + 0.03F * grain;
    const float age = Fractal(p, {3, 3}, 4, 7340);
    const Paint wall = Mix(Hex(0xD9B98C), Hex(0xEBD7B4), 0.5F + 0.5F * age);
    return {wall * (0.86F + 0.26F * height + 0.04F * grain), height};
}

Texel RoofSlates(Point p)
{
    constexpr Grid kRows{8, 8};
    const Square slate = StaggeredAt(p, kRows);
    const float tone = Chance(slate.across, slate.down, kRows, 7400);
    // The lower end is round; below it the next row is seen.
    const float tongue = std::hypot(slate.x, std::max(0.0F, slate.y + 0.02F)) - 0.475F;
    const bool upper = tongue > 0.0F;
    const Square below = StaggeredAt({p.u + 0.0F, p.v + 1.0F / 8.0F}, kRows);
    const float seen = upper ? Chance(below.across, below.down, kRows, 7400) : tone;
    const float down = upper ? slate.y - 0.5F : slate.y + 0.5F;
    const float rough = Fractal(p, {30, 16}, 4, 7410);
    const float shadow = upper ? Smooth(0.16F, 0.0F, tongue) : 0.0F;
    const float rim = upper ? 0.0F : Smooth(-0.05F, -0.005F, tongue);
    const Paint stone = Mix(Hex(0x4A545E), Hex(0x7C8189), seen) * (1.0F + 0.15F * rough);
    return {stone * (1.0F - 0.62F * shadow + 0.16F * rim),
            0.22F + 0.50F * std::clamp(down, -0.5F, 1.0F) + 0.05F * rough, 0.5F + 0.4F * rough};
}

}  // namespace media
