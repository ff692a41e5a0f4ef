#pragma once

#include "material/Attributes.h"
#include "platform/NumberText.h"

#include <optional>
#include <string>
#include <string_view>

namespace CorvexMaterial {

/// The text as the attribute's kind writes it: whole numbers rounded, a colour without its top
/// byte, flags "True" or "False". Nothing when it does not convert or a list position is out of
/// range. A group has no text: nothing.
[[nodiscard]] std::optional<std::string> CanonicalText(Attribute attribute, std::string_view text);

}  // namespace CorvexMaterial
