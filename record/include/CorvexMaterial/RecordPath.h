#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace CorvexMaterial {

using CustomFieldValues = std::array<std::string, CorvexDB::kCustomFieldCount>;

/// What an attribute holds. Colours, list positions and enumerations are whole numbers.
using AttributeValue =
    std::variant<std::int32_t, float, bool, std::string, std::vector<float>, CustomFieldValues>;

/// A member, or one element of an array. Comparable while compiling.
struct PathStep {
    const char* identity = nullptr;  ///< an address that is this step's alone; null behind the last
};

[[nodiscard]] constexpr bool operator==(const PathStep& one, const PathStep& other)
{
    return one.identity == other.identity;
}

using PathSteps = std::array<PathStep, 4>;

/// Where in a record an attribute lives, the type of the member erased.
struct RecordPath {
    PathSteps steps{};
    AttributeValue (*get)(const CorvexDB::udtMaterial& record) = nullptr;
    /// Errors: std::bad_variant_access for a value of another type; nothing has changed then.
    void (*set)(CorvexDB::udtMaterial& record, const AttributeValue& value) = nullptr;
    bool (*same)(const CorvexDB::udtMaterial& one, const CorvexDB::udtMaterial& other) = nullptr;

    [[nodiscard]] constexpr bool LeadsIntoRecord() const { return get != nullptr; }
};

/// Of what the panel or the host keeps beside the material.
inline constexpr RecordPath kPanelState{};

}  // namespace CorvexMaterial
