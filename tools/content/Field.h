#pragma once

#include <CorvexMaterial/Noise.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace media {

namespace noise = CorvexMaterial::noise;

// What textures are drawn with. Everything repeats after one tile, which reaches from 0 to 1 in
// both directions, x to the right and y down.

struct Point {
    float u = 0.0F;
    float v = 0.0F;
};

/// Whole cells per tile, so that the last one meets the first.
struct Grid {
    int across = 1;
    int down = 1;
};

using Seed = std::uint32_t;

/// The nearest of points that are scattered one a cell; distances in cells.
struct Cell {
    float centre = 0.0F;  ///< to the point
    float border = 0.0F;  ///< to the line halfway to its nearest neighbour
    float random = 0.0F;  ///< 0 to 1, the point's own
};

inline constexpr float kTurn = 6.2831853F;

using noise::Fraction;
using noise::Mix;
using noise::Smooth;

/// -1 to 1 and back, `cycles` times a tile when the cycles are a whole number.
[[nodiscard]] inline float Wave(float at, float cycles, float phase = 0.0F)
{
    return std::sin(kTurn * (at * cycles + phase));
}

/// About -1 to 1.
[[nodiscard]] float Noise(Point p, Grid grid, Seed seed);
/// Octaves of noise, each twice as fine and half as strong; about -1 to 1.
[[nodiscard]] float Fractal(Point p, Grid grid, int octaves, Seed seed);
/// 1 on thin winding lines, falling to 0 beside them; `sharpness` above 1 narrows them.
[[nodiscard]] float Veins(Point p, Grid grid, int octaves, float sharpness, Seed seed);
/// The point, moved about by up to `reach` of a tile.
[[nodiscard]] Point Warped(Point p, Grid grid, float reach, Seed seed, int octaves = 2);
[[nodiscard]] Cell Cells(Point p, Grid grid, Seed seed);
/// 0 to 1, the same all over one cell of the grid.
[[nodiscard]] float Chance(int across, int down, Grid grid, Seed seed);

/// The cell of a plain grid and the place in it, -0.5 to 0.5.
struct Square {
    int across = 0;
    int down = 0;
    float x = 0.0F;
    float y = 0.0F;
};

[[nodiscard]] Square SquareAt(Point p, Grid grid);
/// Every second row is moved by half a cell; `grid.down` must be even.
[[nodiscard]] Square StaggeredAt(Point p, Grid grid);
/// Distance to the border of a rounded rectangle, negative inside; all in the same unit.
[[nodiscard]] float RoundedBox(float x, float y, float halfWidth, float halfHeight, float corner);

}  // namespace media
