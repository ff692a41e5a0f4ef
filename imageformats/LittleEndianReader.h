#pragma once

#include "RgbaImage.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace studio {

/// Reads little-endian values off the front of a file; throws ImageError where the file ends too
/// early.
class LittleEndianReader {
public:
    explicit LittleEndianReader(std::span<const std::byte> bytes) : m_rest(bytes) {}

    std::span<const std::byte> Take(std::size_t count)
    {
        if (count > m_rest.size()) {
            throw ImageError("The file is cut short.");
        }
        const auto taken = m_rest.first(count);
        m_rest = m_rest.subspan(count);
        return taken;
    }
    std::uint8_t Byte() { return std::to_integer<std::uint8_t>(Take(1)[0]); }
    std::uint16_t Word() { return static_cast<std::uint16_t>(Little(2)); }
    std::uint32_t DoubleWord() { return Little(4); }

    [[nodiscard]] std::span<const std::byte> Rest() const { return m_rest; }

private:
    std::uint32_t Little(std::size_t count)
    {
        std::uint32_t value = 0;
        unsigned shift = 0;
        for (const std::byte part : Take(count)) {
            value |= std::to_integer<std::uint32_t>(part) << shift;
            shift += 8;
        }
        return value;
    }

    std::span<const std::byte> m_rest;
};

}  // namespace studio
