#pragma once

#include <CorvexMaterial/MaterialEdit.h>
#include <CorvexMaterial/Schema.h>

#include <QString>

#include <set>

namespace studio {

/// Attributes of the record that changed; one of those that change together stands for all of them.
using FieldSet = std::set<CorvexMaterial::Attribute>;

[[nodiscard]] FieldSet FieldsOf(const CorvexMaterial::MaterialEdit& edit);
[[nodiscard]] FieldSet Differences(const CorvexDB::udtMaterial& one,
                                   const CorvexDB::udtMaterial& other);

/// What a person calls the change of these: the attribute's name when it is one, that of their
/// group when they are of one, else "material".
[[nodiscard]] QString NameOf(const FieldSet& fields);

}  // namespace studio
