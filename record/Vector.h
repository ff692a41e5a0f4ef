#pragma once

#include <cmath>

namespace CorvexMaterial {

/// A point or a direction in space; what its axes are, the user of one says.
template <typename Number>
struct Vector3 {
    Number x{};
    Number y{};
    Number z{};
};

template <typename Number>
[[nodiscard]] constexpr Vector3<Number> operator+(Vector3<Number> a, Vector3<Number> b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

template <typename Number>
[[nodiscard]] constexpr Vector3<Number> operator-(Vector3<Number> a, Vector3<Number> b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

template <typename Number>
[[nodiscard]] constexpr Vector3<Number> operator*(Vector3<Number> a, Number factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
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

template <typename Number>
[[nodiscard]] Number Length(Vector3<Number> a)
{
    return std::sqrt(Dot(a, a));
}

}  // namespace CorvexMaterial
