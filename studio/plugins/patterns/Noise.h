#pragma once

#include <cstdint>

namespace patterns {

/// 0 to 1, the same for the same lattice point and seed.
[[nodiscard]] float Lattice(int x, int y, std::uint32_t seed);

/// Smooth noise, about -1 to 1, that repeats after a whole number of lattice cells.
struct Periodic {
    int x = 1;  ///< cells per repetition, at least 1
    int y = 1;
};

/// x and y in cells of the period.
[[nodiscard]] float Noise(float x, float y, Periodic period, std::uint32_t seed);

/// Octaves of noise, each twice as fine and half as strong.
struct Octaves {
    Periodic period;  ///< the coarsest one's
    int count = 1;
    std::uint32_t seed = 0;
};

/// About -1 to 1. u and v from 0 to 1; further octaves finer than the pixels, which are given as a
/// part of the texture, are left out.
[[nodiscard]] float Fractal(float u, float v, const Octaves& octaves, float pixel);

/// Of scattered points, one per cell, the nearest one.
struct Cell {
    float border = 0.0F;  ///< how far the border to its neighbour is, in cells
    float random = 0.0F;  ///< 0 to 1, the cell's own
};

[[nodiscard]] Cell CellAt(float u, float v, Periodic period, std::uint32_t seed);

}  // namespace patterns
