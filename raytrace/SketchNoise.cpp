#include "raytrace/SketchNoise.h"

#include <cmath>

namespace CorvexMaterial {

namespace {

std::uint32_t HashOf(std::int32_t x, std::int32_t y, std::int32_t z)
{
    auto hash = static_cast<std::uint32_t>(x) * 0x8da6b343U;
    hash ^= static_cast<std::uint32_t>(y) * 0xd8163841U;
    hash ^= static_cast<std::uint32_t>(z) * 0xcb1ab31fU;
    hash ^= hash >> 15U;
    hash *= 0x2c1b3c6dU;
    hash ^= hash >> 12U;
    hash *= 0x297a2d39U;
    return hash ^ (hash >> 15U);
}

/// One of twelve slopes, towards the edges of a cube.
float Slope(std::uint32_t hash, SketchPoint at)
{
    const std::uint32_t kind = hash & 15U;
    const float first = kind < 8U ? at.x : at.y;
    const float second = kind < 4U ? at.y : (kind == 12U || kind == 14U ? at.x : at.z);
    return ((kind & 1U) != 0U ? -first : first) + ((kind & 2U) != 0U ? -second : second);
}

float Fade(float t)
{
    return t * t * t * (t * (t * 6.0F - 15.0F) + 10.0F);
}

float Mix(float a, float b, float t)
{
    return a + (b - a) * t;
}

struct Cell {
    std::int32_t x;
    std::int32_t y;
    std::int32_t z;
};

float Corner(const Cell& cell, SketchPoint in, std::int32_t dx, std::int32_t dy, std::int32_t dz)
{
    const SketchPoint offset{static_cast<float>(dx), static_cast<float>(dy),
                             static_cast<float>(dz)};
    return Slope(HashOf(cell.x + dx, cell.y + dy, cell.z + dz), in - offset);
}

}  // namespace

float Length(SketchPoint a)
{
    return std::sqrt(Dot(a, a));
}

SketchPoint Unit(SketchPoint a)
{
    return a * (1.0F / Length(a));
}

float CellValue(std::int32_t x, std::int32_t y, std::int32_t z)
{
    return static_cast<float>(HashOf(x, y, z) >> 8U) / 16777216.0F;
}

float Noise(SketchPoint at)
{
    const SketchPoint floor{std::floor(at.x), std::floor(at.y), std::floor(at.z)};
    const Cell cell{static_cast<std::int32_t>(floor.x), static_cast<std::int32_t>(floor.y),
                    static_cast<std::int32_t>(floor.z)};
    const SketchPoint in = at - floor;
    const float u = Fade(in.x);
    const float v = Fade(in.y);
    const auto layer = [&](std::int32_t dz) {
        return Mix(Mix(Corner(cell, in, 0, 0, dz), Corner(cell, in, 1, 0, dz), u),
                   Mix(Corner(cell, in, 0, 1, dz), Corner(cell, in, 1, 1, dz), u), v);
    };
    return 0.5F + 0.5F * Mix(layer(0), layer(1), Fade(in.z));
}

SketchPoint Shaken(SketchPoint at, float amount)
{
    constexpr int kOctaves = 6;
    constexpr SketchPoint kElsewhere{31.7F, 11.3F, 47.9F};
    if (amount <= 0.0F) {
        return at;
    }
    SketchPoint moved = at;
    float size = amount;
    float density = 1.0F;
    for (int octave = 0; octave < kOctaves; ++octave) {
        const SketchPoint place = at * density;
        const SketchPoint shift{Noise(place) - 0.5F, Noise(place + kElsewhere) - 0.5F,
                                Noise(place - kElsewhere) - 0.5F};
        moved = moved + shift * (2.0F * size);
        size *= 0.5F;
        density *= 2.0F;
    }
    return moved;
}

}  // namespace CorvexMaterial
