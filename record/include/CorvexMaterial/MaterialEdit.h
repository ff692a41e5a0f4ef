#pragma once

// What the control's signal `Edited` tells, and what a host tells it of several shapes. For hosts
// too: standard C++17, nothing but the standard library.

#include <CorvexMaterial/Attribute.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace CorvexMaterial {

/// Of the type that the member of the record has; colours, list positions and enumerations are
/// whole numbers, the parameters of a plug-in a list.
using EditedValue = std::variant<std::int32_t, float, bool, std::string, std::vector<float>>;

struct EditedRow {
    Attribute attribute{};
    std::size_t element = 0;  ///< which of the custom fields, from 0; 0 of every other attribute
    EditedValue value;
};

/// One edit of the user: what he touched, with the values that he gave it, be they those that the
/// panel showed before. Each attribute, and each custom field, stands in it once, in the order of
/// `Attribute`.
///
/// What only means something together comes together: a plug-in and its parameters, the raytrace
/// type with the predefined type and material, the fractions of a crop, those of a pattern colour.
struct MaterialEdit {
    std::vector<EditedRow> rows;  ///< never empty
    /// Another material was put in the place of the old one, from a library or from the defaults,
    /// and these are all the rows that it brings.
    bool isWhole = false;
    /// What that material was called where it was copied (`Material::SetMaterialName`); empty for
    /// none.
    std::string name = {};
    /// Edits of one drag of a slider or a label have the same number, those of no drag 0.
    std::uint32_t gesture = 0;
};

/// Where the shapes differ that the next edit goes to.
struct DifferingRow {
    Attribute attribute{};
    std::size_t element = 0;          ///< as in `EditedRow`
    std::vector<EditedValue> values;  ///< a handful of the distinct ones, to be shown
    std::size_t count = 0;            ///< how many distinct ones there are
};

}  // namespace CorvexMaterial
