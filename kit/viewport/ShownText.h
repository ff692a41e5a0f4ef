#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <QString>

#include <string>
#include <vector>

namespace studio {

// Tool tips about materials are rich text; names and values in them appear as text whatever they
// hold.

[[nodiscard]] QString TipHeading(const std::string& name);
[[nodiscard]] QString TipRow(const QString& name, const QString& value);
/// Of each custom field that has a name and a value.
[[nodiscard]] QString TipRowsOfFields(const CorvexDB::udtMaterial& material,
                                      const std::vector<std::string>& fieldNames);

/// A name or a step in a menu: a long one without its middle, & as a letter.
[[nodiscard]] QString MenuCaption(const QString& text);

/// A colour as a person calls it: its name in the colour list, or its hexadecimal form.
[[nodiscard]] QString ColourText(CorvexMaterial::Colour colour);

}  // namespace studio
