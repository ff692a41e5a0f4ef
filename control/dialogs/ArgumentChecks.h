#pragma once

#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Status.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace CorvexMaterial {

/// Errors: InvalidArgument, naming the argument.
inline void CheckFinite(float value, const char* name)
{
    if (!std::isfinite(value)) {
        throw Error(Status::InvalidArgument, std::string(name) + " is not a finite number");
    }
}

/// Errors: InvalidArgument, naming the argument, for a position outside a list of this size.
inline void CheckPosition(std::int32_t position, std::size_t size, const char* name)
{
    if (position < 0 || static_cast<std::size_t>(position) >= size) {
        throw Error(Status::InvalidArgument,
                    std::string(name) + " has no position " + std::to_string(position));
    }
}

/// Errors: Overflow for NaN and for what does not fit 32 bits.
[[nodiscard]] inline std::int32_t RoundHalfEven(double value)
{
    const std::optional<std::int32_t> rounded = RoundedIfFits(value);
    if (!rounded) {
        throw Error(Status::Overflow, "A number does not fit 32 bits.");
    }
    return *rounded;
}

}  // namespace CorvexMaterial
