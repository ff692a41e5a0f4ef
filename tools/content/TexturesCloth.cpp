#include "Textures.h"

#include "Field.h"

#include <array>

namespace media {
namespace {

/// A weave in which each thread lies over `over` others, then under `under`, one further in each
/// row: 1 over 1 is plain, 2 over 2 and 3 over 1 are twills. The number of threads per tile is a
/// multiple of over + under.
struct Weave {
    int threads;
    int over;
    int under;
};

struct Thread {
    bool upright;  ///< runs from top to bottom
    int number;
    float across;  ///< -1 to 1 from edge to edge
    float height;  ///< 0 to 1
};

Thread ThreadAt(Point p, const Weave& weave)
{
    const Square square = SquareAt(p, {weave.threads, weave.threads});
    const int period = weave.over + weave.under;
    const int place = (square.across + square.down) % period;
    const bool upright = place < weave.over;
    const float across = 2.0F * (upright ? square.x : square.y);
    const float along = (upright ? square.y : square.x) + 0.5F;
    const auto length = static_cast<float>(upright ? weave.over : weave.under);
    const auto before = static_cast<float>(upright ? place : place - weave.over);
    const float arc = std::sin(0.5F * kTurn * (before + along) / length);
    const float round = std::sqrt(std::max(0.0F, 1.0F - across * across));
    return {upright, upright ? square.across : square.down, across, round * (0.50F + 0.50F * arc)};
}

/// Hairs along and a slight twist across a thread.
float Hairs(Point p, const Thread& thread, int threads, Seed seed)
{
    const Grid along{threads / 2, threads * 4};
    const Grid down{threads * 4, threads / 2};
    return Noise(p, thread.upright ? down : along, seed);
}

float Uneven(const Thread& thread, Point p, Seed seed)
{
    const float along = thread.upright ? p.v : p.u;
    return Noise({along, static_cast<float>(thread.number) * 0.137F}, {9, 997}, seed);
}

Texel Woven(Paint colour, float height, float relief)
{
    return {colour * (0.48F + 0.58F * height), 0.25F + relief * height};
}

}  // namespace

Texel Linen(Point p)
{
    const Point q = Warped(p, {12, 12}, 0.0022F, 5000, 2);
    const Thread thread = ThreadAt(q, {56, 1, 1});
    const float slub = Uneven(thread, p, 5010 + (thread.upright ? 1U : 0U));
    const float hair = Hairs(q, thread, 56, 5020);
    const Paint yarn =
        Mix(Hex(0xC7B697), Hex(0xEADFC8), 0.5F + 0.6F * slub) * (1.0F + 0.10F * hair);
    return Woven(yarn, thread.height, 0.34F);
}

Texel Denim(Point p)
{
    const Weave twill{88, 3, 1};
    const Point q = Warped(p, {20, 20}, 0.0012F, 5100, 2);
    const Thread thread = ThreadAt(q, twill);
    const float fade = Fractal(p, {5, 3}, 4, 5110);
    const float streak = Uneven(thread, p, 5120);
    const float hair = Hairs(q, thread, 88, 5130);
    const Paint indigo =
        Mix(Hex(0x1F3358), Hex(0x5673A3), 0.36F + 0.30F * fade + 0.32F * streak + 0.18F * hair);
    const Paint weft = Hex(0xBFC6CF) * (0.95F + 0.1F * hair);
    return Woven(Mix(weft, indigo, thread.upright ? 1.0F : 0.22F), thread.height, 0.26F);
}

Texel Tartan(Point p)
{
    constexpr std::array kSett{Hex(0x8E1B22), Hex(0x8E1B22), Hex(0x8E1B22), Hex(0x14301F),
                               Hex(0x14301F), Hex(0xE0B33A), Hex(0x14301F), Hex(0x14301F),
                               Hex(0x8E1B22), Hex(0x8E1B22), Hex(0x8E1B22), Hex(0x17223F),
                               Hex(0x17223F), Hex(0xE8E2D4), Hex(0x17223F), Hex(0x17223F)};
    constexpr Weave kTwill{128, 2, 2};
    const Thread thread = ThreadAt(p, kTwill);
    const auto stripe = static_cast<std::size_t>(thread.number) * kSett.size() / 128U;
    // The thin lines are only a third of a stripe wide.
    const bool thin = stripe == 5 || stripe == 13;
    const auto inside = static_cast<std::size_t>(thread.number) % 8U;
    const std::size_t shown = thin && (inside < 2 || inside > 5) ? stripe - 1 : stripe;
    const float wool = Hairs(p, thread, 128, 5210);
    return Woven(kSett[shown] * (1.05F + 0.16F * wool), 0.35F + 0.65F * thread.height, 0.18F);
}

Texel Burlap(Point p)
{
    const Point q = Warped(p, {10, 10}, 0.005F, 5300, 3);
    const Thread thread = ThreadAt(q, {30, 1, 1});
    const float thick = 0.80F + 0.16F * Uneven(thread, p, 5310 + (thread.upright ? 7U : 0U));
    const float body = Smooth(thick, thick - 0.25F, std::abs(thread.across));
    const float hair = Hairs(q, thread, 60, 5320) + 0.6F * Hairs(q, thread, 30, 5330);
    const Paint jute = Mix(Hex(0x8A6A40), Hex(0xC9A671), 0.5F + 0.35F * hair);
    const Paint shaded = jute * (0.45F + 0.6F * thread.height);
    return {Mix(Hex(0x2B1F12), shaded, body), 0.10F + body * (0.12F + 0.55F * thread.height)};
}

Texel KnittedWool(Point p)
{
    constexpr Grid kStitches{16, 20};
    const Point q = Warped(p, {14, 14}, 0.003F, 5400, 2);
    const float x = q.u * static_cast<float>(kStitches.across);
    const float inColumn = x - std::floor(x);
    const bool left = inColumn < 0.5F;
    const float t = left ? 2.0F * inColumn : 2.0F - 2.0F * inColumn;  // 1 in the column's middle
    const float y = Fraction(q.v * static_cast<float>(kStitches.down) - 0.85F * t);
    const float side = 2.0F * t - 1.0F;
    const float loop = 2.0F * y - 1.0F;
    const float round = std::sqrt(std::max(0.0F, 1.0F - side * side * 0.92F)) *
                        std::sqrt(std::max(0.0F, 1.0F - loop * loop * 0.85F));
    const float twist = std::sin(kTurn * (1.6F * y + (left ? 1.1F : -1.1F) * t * 1.2F));
    const float fuzz = Fractal(q, {110, 110}, 2, 5410);
    const Paint wool = Mix(Hex(0x8D2E36), Hex(0xD0636A), 0.25F + 0.65F * round + 0.10F * twist);
    return {wool * (0.35F + 0.68F * round + 0.10F * fuzz), 0.10F + 0.68F * round + 0.05F * twist};
}

Texel BrownLeather(Point p)
{
    const Point q = Warped(p, {9, 9}, 0.014F, 5500, 3);
    const Cell pebble = Cells(q, {44, 44}, 5510);
    const Cell crease = Cells(Warped(p, {5, 5}, 0.05F, 5520, 3), {9, 9}, 5530);
    const float grain = Smooth(0.0F, 0.24F, pebble.border);
    const float fold =
        Smooth(0.05F, 0.0F, crease.border) * Smooth(-0.1F, 0.5F, Noise(p, {4, 4}, 5540));
    const float worn = Fractal(p, {4, 4}, 4, 5550);
    Paint colour = Mix(Hex(0x5E3418), Hex(0x9A5B2C), 0.45F + 0.45F * worn + 0.15F * pebble.random);
    colour = colour * (0.66F + 0.36F * grain) * (1.0F - 0.28F * fold);
    return {colour, 0.30F + 0.22F * grain - 0.14F * fold, 0.35F + 0.5F * grain - 0.3F * fold};
}

Texel CarbonFibre(Point p)
{
    const Weave twill{16, 2, 2};
    const Thread tow = ThreadAt(p, twill);
    const float fibre = Noise(p, tow.upright ? Grid{200, 6} : Grid{6, 200}, 5600);
    const float sheen = tow.upright ? 0.95F : 0.52F;
    const float edge = Smooth(1.0F, 0.80F, std::abs(tow.across));
    const float tone = edge * (sheen * (0.62F + 0.38F * tow.height) + 0.12F * fibre);
    return {Mix(Hex(0x0C0D0F), Hex(0x4A4E54), tone), 0.4F + 0.14F * tow.height,
            0.35F + 0.6F * tone};
}

Texel DamaskSilk(Point p)
{
    const Square motif = StaggeredAt(p, {4, 4});
    const float r = 2.0F * std::hypot(motif.x, motif.y * 0.82F);
    const float angle = std::atan2(motif.x, -motif.y);
    const float petals = 0.52F + 0.17F * std::cos(6.0F * angle) + 0.07F * std::cos(12.0F * angle);
    const float flower = Smooth(0.02F, -0.02F, r - petals);
    const float heart = Smooth(0.02F, -0.02F, r - 0.30F - 0.07F * std::cos(6.0F * angle));
    const float eye = Smooth(0.02F, -0.02F, r - 0.12F);
    const float outline = Smooth(0.035F, 0.015F, std::abs(r - petals - 0.11F));
    const float arch = std::abs(motif.x) + 0.5F + 0.10F * std::sin(kTurn * motif.y) -
                       0.5F * std::abs(motif.y) * 2.0F;
    const float vine = Smooth(0.030F, 0.012F, std::abs(arch - 0.5F)) +
                       Smooth(0.014F, 0.004F, std::abs(arch - 0.56F));
    const float figure = std::clamp(flower - heart + eye + outline + vine, 0.0F, 1.0F);
    const float rib = 0.5F + 0.5F * Wave(figure > 0.5F ? p.u : p.v, 128.0F);
    const float slub = Noise(p, {6, 128}, 5700);
    const Paint silk = Mix(Hex(0x5A0F2A), Hex(0xC98F62), figure);
    return {silk * (0.90F + 0.10F * rib + 0.05F * slub), 0.4F + 0.16F * figure + 0.04F * rib,
            0.35F + 0.6F * figure};
}

Texel Wicker(Point p)
{
    const Point q = Warped(p, {8, 8}, 0.003F, 5800, 2);
    const Thread cane = ThreadAt(q, {20, 2, 2});
    const float grain = Noise(p, cane.upright ? Grid{150, 8} : Grid{8, 150}, 5810);
    const float tone = Uneven(cane, p, 5820);
    const float gap = Smooth(1.0F, 0.86F, std::abs(cane.across));
    const Paint straw = Mix(Hex(0xA9773C), Hex(0xE0BC7E), 0.5F + 0.4F * tone + 0.15F * grain);
    return {Mix(Hex(0x2A190B), straw * (0.50F + 0.56F * cane.height), gap),
            0.10F + 0.80F * cane.height * gap + 0.02F * grain, 0.3F + 0.7F * cane.height};
}

}  // namespace media
