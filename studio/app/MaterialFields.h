#pragma once

#include "host/MaterialRecord.h"

#include <QString>

#include <bitset>
#include <cstddef>

namespace studio {

inline constexpr std::size_t kMaterialFieldCount = 22;
using FieldSet = std::bitset<kMaterialFieldCount>;

/// The fields in which two materials differ, in the record's order.
[[nodiscard]] FieldSet Differences(const CorvexDB::udtMaterial& one,
                                   const CorvexDB::udtMaterial& other);

/// What a person calls the change of these fields: the field's name when it is one, "material" when
/// there are several.
[[nodiscard]] QString NameOf(const FieldSet& fields);

}  // namespace studio
