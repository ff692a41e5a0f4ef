#include "Theme.h"

#include "StudioStyle.h"

#include <QFile>
#include <QPalette>

// The resources of a static library are found only once asked for, and only outside a namespace.
static void LoadResources()
{
    Q_INIT_RESOURCE(studio);
}

namespace studio {
namespace {

struct RoleRow {
    QPalette::ColorRole role;
    QRgb colour;
    QRgb disabled;
};

constexpr QRgb kAccent = 0xFF4C9BE8;
constexpr QRgb kText = 0xFFD8DBE0;
constexpr QRgb kFaintText = 0xFF747B85;
constexpr QRgb kHintText = 0xFF959CA7;  // 4.5 to 1 on the surface and more on fields
constexpr QRgb kSurface = 0xFF2B2E33;
constexpr QRgb kField = 0xFF1F2226;

constexpr std::array kRoles{
    RoleRow{QPalette::Window, kSurface, kSurface},
    RoleRow{QPalette::WindowText, kText, kFaintText},
    RoleRow{QPalette::Base, kField, 0xFF282B30},
    RoleRow{QPalette::AlternateBase, 0xFF25282C, 0xFF282B30},
    RoleRow{QPalette::Text, kText, kFaintText},
    RoleRow{QPalette::PlaceholderText, kHintText, kFaintText},
    RoleRow{QPalette::Button, 0xFF383C43, 0xFF2F3237},
    RoleRow{QPalette::ButtonText, kText, kFaintText},
    RoleRow{QPalette::BrightText, 0xFFFFFFFF, kFaintText},
    RoleRow{QPalette::Highlight, kAccent, 0xFF4A5058},
    RoleRow{QPalette::HighlightedText, 0xFF0E1116, kFaintText},
    RoleRow{QPalette::ToolTipBase, 0xFF3A3F46, 0xFF3A3F46},
    RoleRow{QPalette::ToolTipText, kText, kFaintText},
    RoleRow{QPalette::Link, kAccent, kFaintText},
    RoleRow{QPalette::LinkVisited, kAccent, kFaintText},
    RoleRow{QPalette::Light, 0xFF4A4F57, 0xFF3A3E44},
    RoleRow{QPalette::Midlight, 0xFF3F444B, 0xFF34383D},
    RoleRow{QPalette::Mid, 0xFF25282C, 0xFF25282C},
    RoleRow{QPalette::Dark, 0xFF1A1C1F, 0xFF1A1C1F},
    RoleRow{QPalette::Shadow, 0xFF101214, 0xFF101214},
};

QPalette StudioPalette()
{
    QPalette palette;
    for (const RoleRow& row : kRoles) {
        palette.setColor(row.role, QColor::fromRgba(row.colour));
        palette.setColor(QPalette::Disabled, row.role, QColor::fromRgba(row.disabled));
    }
    return palette;
}

}  // namespace

QColor AccentColour()
{
    return QColor::fromRgba(kAccent);
}

void ApplyTheme(QApplication& application)
{
    LoadResources();
    QApplication::setStyle(new StudioStyle);
    QApplication::setPalette(StudioPalette());
    QFile sheet(QStringLiteral(":/studio/studio.qss"));
    if (sheet.open(QIODevice::ReadOnly)) {
        application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
    }
}

}  // namespace studio
