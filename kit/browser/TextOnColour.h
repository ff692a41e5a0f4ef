#pragma once

#include <QColor>

namespace studio {

/// Text on a background of any colour, as quiet as can be read with ease.
[[nodiscard]] QColor QuietTextOn(const QColor& background);
/// The same at full strength: black or white.
[[nodiscard]] QColor StrongTextOn(const QColor& background);

}  // namespace studio
