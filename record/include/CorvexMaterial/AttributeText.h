#pragma once

#include <CorvexMaterial/Schema.h>

#include <optional>
#include <string>
#include <string_view>

namespace CorvexMaterial {

// The texts of an attribute as the settings and the fields of the panel hold them. Attributes of
// several values have none.

/// The text as the attribute's kind writes it: whole numbers rounded, a colour without its top
/// byte, flags "True" or "False". Nothing when it does not convert or a list position is out of
/// range.
[[nodiscard]] std::optional<std::string> CanonicalText(Attribute attribute, std::string_view text);

/// A single is rounded where the attribute is a whole number; nothing where it does not fit one.
[[nodiscard]] std::optional<std::string> TextIn(const CorvexDB::udtMaterial& record,
                                                Attribute attribute);
/// False when the text does not convert; nothing has changed then.
[[nodiscard]] bool SetText(CorvexDB::udtMaterial& record, Attribute attribute,
                           std::string_view text);

}  // namespace CorvexMaterial
