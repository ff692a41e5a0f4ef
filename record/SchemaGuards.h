#pragma once

// What must hold of the rows before anything compiles.

#include <CorvexMaterial/EnumEnd.h>
#include <CorvexMaterial/Schema.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace CorvexMaterial::schema {

/// Stands for any member of an aggregate; never made.
struct AnyMember {
    template <typename Member>
    constexpr operator Member() const;
};

template <typename Aggregate, typename... Members>
consteval std::size_t MemberCount()
{
    if constexpr (requires { Aggregate{Members{}..., AnyMember{}}; }) {
        return MemberCount<Aggregate, Members..., AnyMember>();
    } else {
        return sizeof...(Members);
    }
}

template <std::size_t Count>
consteval bool RowsFollowEnum(const std::array<AttributeRow, Count>& rows)
{
    for (std::size_t i = 0; i < Count; ++i) {
        if (rows[i].attribute != static_cast<Attribute>(i)) {
            return false;
        }
    }
    return Count == kAttributeCount;
}

template <std::size_t Count>
consteval bool NoTwoRowsShareAMember(const std::array<AttributeRow, Count>& rows)
{
    for (std::size_t i = 0; i < Count; ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            if (rows[i].path.LeadsIntoRecord() && rows[i].path.steps == rows[k].path.steps) {
                return false;
            }
        }
    }
    return true;
}

/// How many members of what the steps lead to (the record itself for none) have a row, or rows for
/// their own members.
template <std::size_t Count>
consteval std::size_t MembersWithRows(const std::array<AttributeRow, Count>& rows,
                                      const PathSteps& outer = {})
{
    const auto depth = std::find(outer.begin(), outer.end(), PathStep{}) - outer.begin();
    std::array<PathStep, Count> met{};
    auto end = met.begin();
    for (const AttributeRow& row : rows) {
        const PathSteps& steps = row.path.steps;
        const PathStep inner = steps[static_cast<std::size_t>(depth)];
        const bool isInside = std::equal(steps.begin(), steps.begin() + depth, outer.begin());
        if (isInside && inner != PathStep{} && std::find(met.begin(), end, inner) == end) {
            *end++ = inner;
        }
    }
    return static_cast<std::size_t>(end - met.begin());
}

}  // namespace CorvexMaterial::schema
