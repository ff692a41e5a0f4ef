#pragma once

#include "TouchedRows.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace CorvexMaterial {

/// A value as it is written where only text can go: a number, on or off, "#ff8000", what a list
/// calls it.
[[nodiscard]] QString ValueText(const TouchedRow& row, const CorvexDB::udtMaterial& record,
                                const std::vector<QWidget*>& controls);

/// Nothing where the text is no value of the attribute. A colour may be called by its name.
[[nodiscard]] std::optional<EditedValue> ValueOfText(Attribute attribute, const std::string& text);

/// Whether a value of one may be given to the other.
[[nodiscard]] bool IsOfTheSameKind(Attribute one, Attribute other);

}  // namespace CorvexMaterial
