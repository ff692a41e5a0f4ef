#include "studio/plugins/patterns/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace patterns {
namespace {

// Gradient noise of unit gradients stays within sqrt(1/2).
constexpr float kGradientScale = 1.414F;

std::uint32_t Hash(int x, int y, std::uint32_t seed)
{
    std::uint32_t bits = seed * 0x9E3779B9U;
    bits ^= static_cast<std::uint32_t>(x) * 0x85EBCA6BU;
    bits = (bits ^ (bits >> 15)) * 0x2C1B3C6DU;
    bits ^= static_cast<std::uint32_t>(y) * 0xC2B2AE35U;
    bits = (bits ^ (bits >> 13)) * 0x297A2D39U;
    return bits ^ (bits >> 16);
}

// std::floor is a call where the processor's own rounding is not assumed.
int Floor(float value)
{
    const int cut = static_cast<int>(value);
    return value < static_cast<float>(cut) ? cut - 1 : cut;
}

// std::lerp pays for exactness that a picture does not need.
float Between(float from, float to, float part)
{
    return from + (to - from) * part;
}

int Wrapped(int cell, int period)
{
    // Most cells need no division.
    if (cell >= 0 && cell < period) {
        return cell;
    }
    const int rest = cell % period;
    return rest < 0 ? rest + period : rest;
}

constexpr std::size_t kDirections = 32;

std::array<std::array<float, 2>, kDirections> MakeDirections()
{
    std::array<std::array<float, 2>, kDirections> directions{};
    for (std::size_t i = 0; i < kDirections; ++i) {
        const float angle = (static_cast<float>(i) + 0.5F) * 6.2831853F / kDirections;
        directions[i] = {std::cos(angle), std::sin(angle)};
    }
    return directions;
}

const std::array<std::array<float, 2>, kDirections> kGradients = MakeDirections();

float Slope(int x, int y, std::uint32_t seed, float dx, float dy)
{
    const auto& gradient = kGradients[Hash(x, y, seed) % kDirections];
    return gradient[0] * dx + gradient[1] * dy;
}

float Fade(float t)
{
    return t * t * t * (t * (t * 6.0F - 15.0F) + 10.0F);
}

}  // namespace

float Lattice(int x, int y, std::uint32_t seed)
{
    return static_cast<float>(Hash(x, y, seed) >> 8) / 16777216.0F;
}

float Noise(float x, float y, Periodic period, std::uint32_t seed)
{
    const int floorX = Floor(x);
    const int floorY = Floor(y);
    const float dx = x - static_cast<float>(floorX);
    const float dy = y - static_cast<float>(floorY);
    const int left = Wrapped(floorX, period.x);
    const int top = Wrapped(floorY, period.y);
    const int right = left + 1 == period.x ? 0 : left + 1;
    const int bottom = top + 1 == period.y ? 0 : top + 1;
    const float a = Slope(left, top, seed, dx, dy);
    const float b = Slope(right, top, seed, dx - 1.0F, dy);
    const float c = Slope(left, bottom, seed, dx, dy - 1.0F);
    const float d = Slope(right, bottom, seed, dx - 1.0F, dy - 1.0F);
    const float fx = Fade(dx);
    return Between(Between(a, b, fx), Between(c, d, fx), Fade(dy)) * kGradientScale;
}

float Fractal(float u, float v, const Octaves& octaves, float pixel)
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

Cell CellAt(float u, float v, Periodic period, std::uint32_t seed)
{
    const float x = u * static_cast<float>(period.x);
    const float y = v * static_cast<float>(period.y);
    const int cellX = Floor(x);
    const int cellY = Floor(y);
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

}  // namespace patterns
