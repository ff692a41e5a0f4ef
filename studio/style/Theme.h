#pragma once

class QApplication;
class QColor;

namespace studio {

/// The studio's look: dark and quiet, one accent colour. The control neither knows nor needs it.
void ApplyTheme(QApplication& application);
[[nodiscard]] QColor AccentColour();

}  // namespace studio
