#include "ThemeColours.h"

#include <CorvexMaterial/LegibleColours.h>

#include <QFile>

// The resources of a static library are found only once asked for, and only outside a namespace.
static void LoadResources()
{
    Q_INIT_RESOURCE(studio);
}

namespace studio {
namespace {

constexpr std::array kThemes{ThemeColours{.bar = 0xFFE4E7EB,
                                          .window = 0xFFF1F3F5,
                                          .field = 0xFFFFFFFF,
                                          .band = 0xFFF6F7F9,
                                          .button = 0xFFFDFDFE,
                                          .pointed = 0xFFE3E9F1,
                                          .pressed = 0xFFD3DBE6,
                                          .off = 0xFFEBEDF0,
                                          .tip = 0xFFFFFFFF,
                                          .line = 0xFFC9CED5,
                                          .text = 0xFF1B1F24,
                                          .quiet = 0xFF444B55,
                                          .hint = 0xFF5D6570,
                                          .faint = 0xFF8E959F,
                                          .accent = 0xFF1C69BD,
                                          .onAccent = 0xFFFFFFFF},
                             ThemeColours{.bar = 0xFF232529,
                                          .window = 0xFF2B2E33,
                                          .field = 0xFF1F2226,
                                          .band = 0xFF25282C,
                                          .button = 0xFF383C43,
                                          .pointed = 0xFF4A4F57,
                                          .pressed = 0xFF25282C,
                                          .off = 0xFF2F3237,
                                          .tip = 0xFF3A3F46,
                                          .line = 0xFF1A1C1F,
                                          .text = 0xFFD8DBE0,
                                          .quiet = 0xFFAEB4BD,
                                          .hint = 0xFF959CA7,
                                          .faint = 0xFF747B85,
                                          .accent = 0xFF4C9BE8,
                                          .onAccent = 0xFF0E1116},
                             ThemeColours{.bar = 0xFF000000,
                                          .window = 0xFF000000,
                                          .field = 0xFF000000,
                                          .band = 0xFF141414,
                                          .button = 0xFF000000,
                                          .pointed = 0xFF333333,
                                          .pressed = 0xFF4D4D4D,
                                          .off = 0xFF000000,
                                          .tip = 0xFF000000,
                                          .line = 0xFFFFFFFF,
                                          .text = 0xFFFFFFFF,
                                          .quiet = 0xFFFFFFFF,
                                          .hint = 0xFFE0E0E0,
                                          .faint = 0xFF9A9A9A,
                                          .accent = 0xFFFFD60A,
                                          .onAccent = 0xFF000000}};
static_assert(kThemes.size() == static_cast<std::size_t>(Theme::HighContrast) + 1);

struct RoleRow {
    QPalette::ColorRole role;
    QRgb ThemeColours::*colour;
    QRgb ThemeColours::*disabled;
};

using C = ThemeColours;

constexpr std::array kRoles{
    RoleRow{QPalette::Window, &C::window, &C::window},
    RoleRow{QPalette::WindowText, &C::text, &C::faint},
    RoleRow{QPalette::Base, &C::field, &C::off},
    RoleRow{QPalette::AlternateBase, &C::band, &C::off},
    RoleRow{QPalette::Text, &C::text, &C::faint},
    RoleRow{QPalette::PlaceholderText, &C::hint, &C::faint},
    RoleRow{QPalette::Button, &C::button, &C::off},
    RoleRow{QPalette::ButtonText, &C::text, &C::faint},
    RoleRow{QPalette::BrightText, &C::text, &C::faint},
    RoleRow{QPalette::Highlight, &C::accent, &C::faint},
    RoleRow{QPalette::HighlightedText, &C::onAccent, &C::onAccent},
    RoleRow{QPalette::ToolTipBase, &C::tip, &C::tip},
    RoleRow{QPalette::ToolTipText, &C::text, &C::faint},
    RoleRow{QPalette::Link, &C::accent, &C::faint},
    RoleRow{QPalette::LinkVisited, &C::accent, &C::faint},
    RoleRow{QPalette::Light, &C::pointed, &C::pointed},
    RoleRow{QPalette::Midlight, &C::pointed, &C::pointed},
    RoleRow{QPalette::Mid, &C::pressed, &C::pressed},
    RoleRow{QPalette::Dark, &C::line, &C::line},
    RoleRow{QPalette::Shadow, &C::line, &C::line},
};

/// Where the style sheet says @ and the name.
struct TokenRow {
    const char* name;
    QRgb ThemeColours::*colour;
};

constexpr std::array kTokens{
    TokenRow{"@bar;", &C::bar},         TokenRow{"@window;", &C::window},
    TokenRow{"@field;", &C::field},     TokenRow{"@band;", &C::band},
    TokenRow{"@pointed;", &C::pointed}, TokenRow{"@tip;", &C::tip},
    TokenRow{"@line;", &C::line},       TokenRow{"@text;", &C::text},
    TokenRow{"@quiet;", &C::quiet},     TokenRow{"@faint;", &C::faint},
    TokenRow{"@accent;", &C::accent},   TokenRow{"@onAccent;", &C::onAccent},
};

}  // namespace

const ThemeColours& ColoursOf(Theme theme)
{
    return kThemes[static_cast<std::size_t>(theme)];
}

QPalette PaletteOf(Theme theme)
{
    const ThemeColours& colours = ColoursOf(theme);
    QPalette palette;
    for (const RoleRow& row : kRoles) {
        palette.setColor(row.role, QColor::fromRgb(colours.*row.colour));
        palette.setColor(QPalette::Disabled, row.role, QColor::fromRgb(colours.*row.disabled));
    }
    return palette;
}

QString SheetOf(Theme theme)
{
    LoadResources();
    QFile file(QStringLiteral(":/studio/studio.qss"));
    QString sheet = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    for (const TokenRow& row : kTokens) {
        sheet.replace(QLatin1String(row.name),
                      QColor::fromRgb(ColoursOf(theme).*row.colour).name() + u';');
    }
    return sheet.replace(QLatin1String("@edge;"),
                         CorvexMaterial::EdgeOf(PaletteOf(theme)).name() + u';');
}

}  // namespace studio
