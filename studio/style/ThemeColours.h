#pragma once

#include <QPalette>

namespace studio {

enum class Theme { Light, Dark, HighContrast };

/// What a theme is made of. Edges are not here: they follow from the colours they separate.
struct ThemeColours {
    QRgb bar;  ///< menus, titles of docks and the status line stand on it
    QRgb window;
    QRgb field;  ///< inside of fields and lists
    QRgb band;   ///< every second row, headings of lists, under scroll bars
    QRgb button;
    QRgb pointed;  ///< a button under the pointer
    QRgb pressed;
    QRgb off;  ///< a button or a field that cannot be used
    QRgb tip;
    QRgb line;  ///< only divides
    QRgb text;
    QRgb quiet;  ///< text on a bar
    QRgb hint;   ///< text that waits in an empty field
    QRgb faint;  ///< text of what cannot be used
    QRgb accent;
    QRgb onAccent;  ///< text and signs on the accent
};

[[nodiscard]] const ThemeColours& ColoursOf(Theme theme);
[[nodiscard]] QPalette PaletteOf(Theme theme);
/// The style sheet, with the theme's colours in it.
[[nodiscard]] QString SheetOf(Theme theme);

}  // namespace studio
