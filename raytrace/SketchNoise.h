#pragma once

#include <cstdint>

namespace CorvexMaterial {

/// A point or direction of the sketch: x right, y up, z away from the viewer's back.
struct SketchPoint {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
};

[[nodiscard]] constexpr SketchPoint operator+(SketchPoint a, SketchPoint b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
[[nodiscard]] constexpr SketchPoint operator-(SketchPoint a, SketchPoint b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
[[nodiscard]] constexpr SketchPoint operator*(SketchPoint a, float factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
}
[[nodiscard]] constexpr float Dot(SketchPoint a, SketchPoint b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
[[nodiscard]] float Length(SketchPoint a);
/// Of a point that is not the origin.
[[nodiscard]] SketchPoint Unit(SketchPoint a);

/// The same for the same cell, spread evenly over 0 to 1.
[[nodiscard]] float CellValue(std::int32_t x, std::int32_t y, std::int32_t z);

/// Smooth, 0 to 1, its features one unit apart.
[[nodiscard]] float Noise(SketchPoint at);

/// The point shaken by noise of six sizes, each half of the one before.
[[nodiscard]] SketchPoint Shaken(SketchPoint at, float amount);

}  // namespace CorvexMaterial
