#pragma once

// Noise that repeats, for whatever draws a pattern: a header alone, so that a plug-in needs no
// library for it.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace CorvexMaterial::noise {

/// Smooth noise, about -1 to 1, that repeats after a whole number of lattice cells.
struct Periodic {
    int x = 1;  ///< cells per repetition, at least 1
    int y = 1;
};

/// Octaves of noise, each twice as fine and half as strong.
struct Octaves {
    Periodic period;  ///< the coarsest one's
    int count = 1;
    std::uint32_t seed = 0;
};

/// Of scattered points, one per cell, the nearest one.
struct Cell {
    float border = 0.0F;  ///< how far the border to its neighbour is, in cells
    float random = 0.0F;  ///< 0 to 1, the cell's own
};

/// From one to the other. Unlike std::lerp not exact at the far end, and quick.
[[nodiscard]] constexpr float Mix(float from, float to, float part)
{
    return from + (to - from) * part;
}

/// 0 before the first edge, 1 after the second, smooth in between. `to` may lie below `from`.
[[nodiscard]] constexpr float Smooth(float from, float to, float value)
{
    const float t = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
    return t * t * (3.0F - 2.0F * t);
}

[[nodiscard]] inline float Fraction(float value)
{
    return value - std::floor(value);
}

/// The cell of one repetition that stands in for any cell.
[[nodiscard]] constexpr int Wrapped(int cell, int period)
{
    // Most cells need no division, which would take more time than all else.
    if (cell >= 0 && cell < period) {
        return cell;
    }
    const int rest = cell % period;
    return rest < 0 ? rest + period : rest;
}

namespace inside {

// Gradient noise of unit gradients stays within sqrt(1/2).
inline constexpr float kGradientScale = 1.414F;

/// Multiplying and folding down, with factors of MurmurHash3 and hash-prospector.
[[nodiscard]] inline std::uint32_t Hash(int x, int y, std::uint32_t seed)
{
    std::uint32_t bits = seed * 0x9E3779B9U;
    bits ^= static_cast<std::uint32_t>(x) * 0x85EBCA6BU;
    bits = (bits ^ (bits >> 15)) * 0x2C1B3C6DU;
    bits ^= static_cast<std::uint32_t>(y) * 0xC2B2AE35U;
    bits = (bits ^ (bits >> 13)) * 0x297A2D39U;
    return bits ^ (bits >> 16);
}

// std::floor is a call where the processor's own rounding is not assumed.
[[nodiscard]] inline int Floor(float value)
{
    const int cut = static_cast<int>(value);
    return value < static_cast<float>(cut) ? cut - 1 : cut;
}

inline constexpr std::size_t kDirections = 32;

[[nodiscard]] inline std::array<std::array<float, 2>, kDirections> MakeDirections()
{
    std::array<std::array<float, 2>, kDirections> directions{};
    for (std::size_t i = 0; i < kDirections; ++i) {
        const float angle = (static_cast<float>(i) + 0.5F) * 6.2831853F / kDirections;
        directions[i] = {std::cos(angle), std::sin(angle)};
    }
    return directions;
}

inline const std::array<std::array<float, 2>, kDirections> kGradients = MakeDirections();

[[nodiscard]] inline float Slope(int x, int y, std::uint32_t seed, float dx, float dy)
{
    const auto& gradient = kGradients[Hash(x, y, seed) % kDirections];
    return gradient[0] * dx + gradient[1] * dy;
}

/// Its first two derivatives vanish at both ends: K. Perlin, "Improving Noise", SIGGRAPH 2002.
[[nodiscard]] inline float Fade(float t)
{
    return t * t * t * (t * (t * 6.0F - 15.0F) + 10.0F);
}

}  // namespace inside

/// 0 to 1, the same for the same lattice point and seed.
[[nodiscard]] inline float Lattice(int x, int y, std::uint32_t seed)
{
    return static_cast<float>(inside::Hash(x, y, seed) >> 8) / 16777216.0F;
}

/// x and y in cells of the period. K. Perlin, "An Image Synthesizer", SIGGRAPH 1985, in two
/// dimensions.
[[nodiscard]] inline float Noise(float x, float y, Periodic period, std::uint32_t seed)
{
    const int floorX = inside::Floor(x);
    const int floorY = inside::Floor(y);
    const float dx = x - static_cast<float>(floorX);
    const float dy = y - static_cast<float>(floorY);
    const int left = Wrapped(floorX, period.x);
    const int top = Wrapped(floorY, period.y);
    const int right = left + 1 == period.x ? 0 : left + 1;
    const int bottom = top + 1 == period.y ? 0 : top + 1;
    const float a = inside::Slope(left, top, seed, dx, dy);
    const float b = inside::Slope(right, top, seed, dx - 1.0F, dy);
    const float c = inside::Slope(left, bottom, seed, dx, dy - 1.0F);
    const float d = inside::Slope(right, bottom, seed, dx - 1.0F, dy - 1.0F);
    const float fx = inside::Fade(dx);
    return Mix(Mix(a, b, fx), Mix(c, d, fx), inside::Fade(dy)) * inside::kGradientScale;
}

/// About -1 to 1. u and v from 0 to 1; further octaves finer than the pixels, which are given as a
/// part of the texture, are left out.
[[nodiscard]] inline float Fractal(float u, float v, const Octaves& octaves, float pixel)
{
    float sum = 0.0F;
    float strength = 0.5F;
    Periodic period = octaves.period;
    for (int octave = 0; octave < octaves.count; ++octave) {
        // The first one stays: a pattern that vanishes in a small texture would seem broken.
        if (octave > 0 && static_cast<float>(std::max(period.x, period.y)) * pixel > 0.5F) {
            break;
        }
        sum += strength * Noise(u * static_cast<float>(period.x), v * static_cast<float>(period.y),
                                period, octaves.seed + static_cast<std::uint32_t>(octave));
        strength *= 0.5F;
        period = {period.x * 2, period.y * 2};
    }
    return sum;
}

/// S. Worley, "A Cellular Texture Basis Function", SIGGRAPH 1996.
[[nodiscard]] inline Cell CellAt(float u, float v, Periodic period, std::uint32_t seed)
{
    const float x = u * static_cast<float>(period.x);
    const float y = v * static_cast<float>(period.y);
    const int cellX = inside::Floor(x);
    const int cellY = inside::Floor(y);
    Cell cell;
    float nearest = 1e9F;
    float second = 1e9F;
    for (int j = cellY - 1; j <= cellY + 1; ++j) {
        for (int i = cellX - 1; i <= cellX + 1; ++i) {
            const int wrappedX = Wrapped(i, period.x);
            const int wrappedY = Wrapped(j, period.y);
            const float dx = static_cast<float>(i) + Lattice(wrappedX, wrappedY, seed) - x;
            const float dy = static_cast<float>(j) + Lattice(wrappedX, wrappedY, seed + 1) - y;
            const float distance = std::hypot(dx, dy);
            if (distance < nearest) {
                second = nearest;
                nearest = distance;
                cell.random = Lattice(wrappedX, wrappedY, seed + 2);
            } else {
                second = std::min(second, distance);
            }
        }
    }
    cell.border = (second - nearest) * 0.5F;
    return cell;
}

}  // namespace CorvexMaterial::noise
