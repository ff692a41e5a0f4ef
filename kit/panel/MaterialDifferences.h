#pragma once

#include "ShapeChange.h"
#include <CorvexMaterial/MaterialEdit.h>

#include <vector>

namespace studio {

/// The attributes that are not the same for all of the shapes, the way of applying among them, each
/// with the first few of its values. Shapes that share a record cost no more than one of them.
[[nodiscard]] std::vector<CorvexMaterial::DifferingRow> DifferencesOf(const ShapeList& shapes);

/// How many materials they have between them; those that nobody shared or named count by record.
[[nodiscard]] std::size_t MaterialsOf(const ShapeList& shapes);

}  // namespace studio
