#include "media/library/Field.h"

#include <array>

namespace media {
namespace {

int Modulo(int value, int period)
{
    const int rest = value % period;
    return rest < 0 ? rest + period : rest;
}

/// Each pattern begins elsewhere. Noise is steepest at the corners of its cells; without this, all
/// octaves of all patterns would have theirs on the tile's border.
Point Begun(Point p, Seed seed)
{
    return {p.u + patterns::Lattice(0, 0, seed), p.v + patterns::Lattice(1, 0, seed)};
}

}  // namespace

float Noise(Point p, Grid grid, Seed seed)
{
    p = Begun(p, seed);
    return patterns::Noise(p.u * static_cast<float>(grid.across),
                           p.v * static_cast<float>(grid.down), {grid.across, grid.down}, seed);
}

float Fractal(Point p, Grid grid, int octaves, Seed seed)
{
    float sum = 0.0F;
    float strength = 0.6F;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += strength * Noise(p, grid, seed + static_cast<Seed>(octave));
        strength *= 0.5F;
        grid = {grid.across * 2, grid.down * 2};
    }
    return sum;
}

float Veins(Point p, Grid grid, int octaves, float sharpness, Seed seed)
{
    const float distance = std::abs(Fractal(p, grid, octaves, seed)) * sharpness;
    return 1.0F / (1.0F + distance * distance);
}

Point Warped(Point p, Grid grid, float reach, Seed seed, int octaves)
{
    return {p.u + reach * Fractal(p, grid, octaves, seed + 101),
            p.v + reach * Fractal(p, grid, octaves, seed + 202)};
}

// Points keep away from the borders of their cells, so that the eight cells around are enough.
Cell Cells(Point p, Grid grid, Seed seed)
{
    constexpr float kFreedom = 0.84F;
    p = Begun(p, seed);
    const float x = p.u * static_cast<float>(grid.across);
    const float y = p.v * static_cast<float>(grid.down);
    const int left = static_cast<int>(std::floor(x)) - 1;
    const int top = static_cast<int>(std::floor(y)) - 1;
    std::array<Point, 9> offsets;
    Cell cell{1e9F, 1e9F, 0.0F};
    std::size_t nearest = 0;
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        const int across = left + static_cast<int>(i % 3);
        const int down = top + static_cast<int>(i / 3);
        const auto free = [&](Seed salt) {
            return 0.5F + kFreedom * (Chance(across, down, grid, seed + salt) - 0.5F);
        };
        offsets[i] = {static_cast<float>(across) + free(0) - x,
                      static_cast<float>(down) + free(1) - y};
        const float distance = std::sqrt(offsets[i].u * offsets[i].u + offsets[i].v * offsets[i].v);
        if (distance < cell.centre) {
            cell.centre = distance;
            nearest = i;
        }
    }
    const Point own = offsets[nearest];
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        const Point step{offsets[i].u - own.u, offsets[i].v - own.v};
        if (i != nearest) {
            const float middle =
                0.5F * ((offsets[i].u + own.u) * step.u + (offsets[i].v + own.v) * step.v);
            cell.border =
                std::min(cell.border, middle / std::sqrt(step.u * step.u + step.v * step.v));
        }
    }
    cell.random = Chance(left + static_cast<int>(nearest % 3), top + static_cast<int>(nearest / 3),
                         grid, seed + 2);
    return cell;
}

float Chance(int across, int down, Grid grid, Seed seed)
{
    return patterns::Lattice(Modulo(across, grid.across), Modulo(down, grid.down), seed);
}

Square SquareAt(Point p, Grid grid)
{
    const float x = p.u * static_cast<float>(grid.across);
    const float y = p.v * static_cast<float>(grid.down);
    const float left = std::floor(x);
    const float top = std::floor(y);
    return {Modulo(static_cast<int>(left), grid.across), Modulo(static_cast<int>(top), grid.down),
            x - left - 0.5F, y - top - 0.5F};
}

Square StaggeredAt(Point p, Grid grid)
{
    const int row = static_cast<int>(std::floor(p.v * static_cast<float>(grid.down)));
    if (Modulo(row, 2) == 1) {
        p.u += 0.5F / static_cast<float>(grid.across);
    }
    return SquareAt(p, grid);
}

float RoundedBox(float x, float y, float halfWidth, float halfHeight, float corner)
{
    const float dx = std::abs(x) - halfWidth + corner;
    const float dy = std::abs(y) - halfHeight + corner;
    return std::hypot(std::max(dx, 0.0F), std::max(dy, 0.0F)) + std::min(std::max(dx, dy), 0.0F) -
           corner;
}

}  // namespace media
