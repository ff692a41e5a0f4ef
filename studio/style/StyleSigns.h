#pragma once

#include <QStyle>

#include <optional>

namespace studio {

/// A flat sign in place of the style's own; nothing where that will do.
[[nodiscard]] std::optional<QIcon> StyleSign(QStyle::StandardPixmap icon, const QPalette& palette);

}  // namespace studio
