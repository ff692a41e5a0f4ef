#pragma once

#include <cstddef>

namespace CorvexMaterial {

/// A point or a direction in space; what its axes are, the user of one says.
template <typename Number>
struct Vector3 {
    Number x{};
    Number y{};
    Number z{};

    [[nodiscard]] constexpr Number& operator[](std::size_t axis)
    {
        return axis == 0 ? x : axis == 1 ? y : z;
    }
    [[nodiscard]] constexpr const Number& operator[](std::size_t axis) const
    {
        return axis == 0 ? x : axis == 1 ? y : z;
    }
};

template <typename Number>
[[nodiscard]] constexpr Vector3<Number> operator-(Vector3<Number> a, Vector3<Number> b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

template <typename Number>
[[nodiscard]] constexpr Number Dot(Vector3<Number> a, Vector3<Number> b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

template <typename Number>
[[nodiscard]] constexpr Vector3<Number> Cross(Vector3<Number> a, Vector3<Number> b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

}  // namespace CorvexMaterial
