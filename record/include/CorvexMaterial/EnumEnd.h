#pragma once

#include <cstddef>
#include <string_view>

namespace CorvexMaterial {

/// Whether the enumeration has a name for the value; compilers write a number where there is none.
template <auto Value>
constexpr bool IsNamed()
{
    const std::string_view told = __PRETTY_FUNCTION__;  // "... = Name]" or "... = (Type)7]"
    return told[told.find('=') + 2] != '(';
}

/// Whether the enumeration, which counts from 0, has so many names: what is counted by hand, or by
/// the rows of a table, is guarded with it.
template <typename Enum, std::size_t Count>
constexpr bool EndsAt()
{
    return IsNamed<static_cast<Enum>(Count - 1)>() && !IsNamed<static_cast<Enum>(Count)>();
}

}  // namespace CorvexMaterial
