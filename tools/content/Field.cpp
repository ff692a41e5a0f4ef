#include "Field.h"

#include <array>

namespace media {
namespace {

/// Each pattern begins elsewhere. Noise is steepest at the corners of its cells; without this, all
/// octaves of all patterns would have theirs on the tile's border.
Point Begun(Point p, Seed seed)
{
    return {p.u + noise::Lattice(0, 0, seed), p.v + noise::Lattice(1, 0, seed)};
}

float Dot(Point a, Point b)
{
    return a.u * b.u + a.v * b.v;
}

/// The scattered points of nine cells, seen from a place in the middle one.
struct Neighbours {
    std::array<int, 3> columns;
    std::array<int, 3> rows;
    std::array<Point, 9> points;
};

std::array<int, 3> ThreeFrom(int first, int period)
{
    return {noise::Wrapped(first, period), noise::Wrapped(first + 1, period),
            noise::Wrapped(first + 2, period)};
}

// Points keep away from the borders of their cells, so that the eight cells around are enough.
Neighbours NeighboursOf(Point p, Grid grid, Seed seed)
{
    constexpr float kFreedom = 0.84F;
    const float x = p.u * static_cast<float>(grid.across);
    const float y = p.v * static_cast<float>(grid.down);
    const int left = static_cast<int>(std::floor(x)) - 1;
    const int top = static_cast<int>(std::floor(y)) - 1;
    Neighbours around{ThreeFrom(left, grid.across), ThreeFrom(top, grid.down), {}};
    for (std::size_t i = 0; i < around.points.size(); ++i) {
        const auto place = [&](Seed salt) {
            const float random =
                noise::Lattice(around.columns[i % 3], around.rows[i / 3], seed + salt);
            return 0.5F + kFreedom * (random - 0.5F);
        };
        around.points[i] = {static_cast<float>(left + static_cast<int>(i % 3)) + place(0) - x,
                            static_cast<float>(top + static_cast<int>(i / 3)) + place(1) - y};
    }
    return around;
}

}  // namespace

float Noise(Point p, Grid grid, Seed seed)
{
    p = Begun(p, seed);
    return noise::Noise(p.u * static_cast<float>(grid.across), p.v * static_cast<float>(grid.down),
                        {grid.across, grid.down}, seed);
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

Cell Cells(Point p, Grid grid, Seed seed)
{
    const Neighbours around = NeighboursOf(Begun(p, seed), grid, seed);
    Cell cell{1e9F, 1e9F, 0.0F};
    std::size_t nearest = 0;
    for (std::size_t i = 0; i < around.points.size(); ++i) {
        const float distance = std::sqrt(Dot(around.points[i], around.points[i]));
        if (distance < cell.centre) {
            cell.centre = distance;
            nearest = i;
        }
    }
    const Point own = around.points[nearest];
    for (const Point& other : around.points) {
        const Point step{other.u - own.u, other.v - own.v};
        const float length = Dot(step, step);
        if (length > 0.0F) {
            const Point middle{0.5F * (other.u + own.u), 0.5F * (other.v + own.v)};
            cell.border = std::min(cell.border, Dot(middle, step) / std::sqrt(length));
        }
    }
    cell.random = noise::Lattice(around.columns[nearest % 3], around.rows[nearest / 3], seed + 2);
    return cell;
}

float Chance(int across, int down, Grid grid, Seed seed)
{
    return noise::Lattice(noise::Wrapped(across, grid.across), noise::Wrapped(down, grid.down),
                          seed);
}

Square SquareAt(Point p, Grid grid)
{
    const float x = p.u * static_cast<float>(grid.across);
    const float y = p.v * static_cast<float>(grid.down);
    const float left = std::floor(x);
    const float top = std::floor(y);
    return {noise::Wrapped(static_cast<int>(left), grid.across),
            noise::Wrapped(static_cast<int>(top), grid.down), x - left - 0.5F, y - top - 0.5F};
}

Square StaggeredAt(Point p, Grid grid)
{
    const int row = static_cast<int>(std::floor(p.v * static_cast<float>(grid.down)));
    if (noise::Wrapped(row, 2) == 1) {
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
