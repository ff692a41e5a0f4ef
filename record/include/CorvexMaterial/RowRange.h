#pragma once

#include <array>
#include <cstddef>

namespace CorvexMaterial {

/// Rows of a table, one behind the other, in its order. The table stays for good.
template <typename Row>
class RowRange {
public:
    constexpr RowRange(const Row* first, const Row* end) : m_first(first), m_end(end) {}
    template <std::size_t Count>
    constexpr RowRange(const std::array<Row, Count>& table)
        : RowRange(table.data(), table.data() + Count)
    {
    }

    [[nodiscard]] constexpr const Row* begin() const { return m_first; }
    [[nodiscard]] constexpr const Row* end() const { return m_end; }
    [[nodiscard]] constexpr std::size_t size() const
    {
        return static_cast<std::size_t>(m_end - m_first);
    }
    [[nodiscard]] constexpr const Row& operator[](std::size_t position) const
    {
        return m_first[position];
    }

private:
    const Row* m_first;
    const Row* m_end;
};

}  // namespace CorvexMaterial
