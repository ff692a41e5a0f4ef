#include "Themes.h"

#include "DesktopLook.h"
#include "StudioStyle.h"

#include <QApplication>

namespace studio {

Themes::Themes(QApplication& application)
    : QObject(&application), m_application(application), m_desktop(new DesktopLook(this))
{
    QApplication::setStyle(new StudioStyle);
    connect(m_desktop, &DesktopLook::Changed, this, &Themes::Show);
    Show();
}

void Themes::Choose(int choice)
{
    const bool isChoice = choice >= 0 && choice <= static_cast<int>(ThemeChoice::HighContrast);
    m_choice = isChoice ? static_cast<ThemeChoice>(choice) : ThemeChoice::Desktop;
    Show();
}

void Themes::LookAgain()
{
    m_desktop->LookAgain();
}

void Themes::Show()
{
    const Theme theme = m_choice == ThemeChoice::Light          ? Theme::Light
                        : m_choice == ThemeChoice::Dark         ? Theme::Dark
                        : m_choice == ThemeChoice::HighContrast ? Theme::HighContrast
                                                                : m_desktop->Wanted();
    if (m_shown == theme) {
        return;
    }
    m_shown = theme;
    QApplication::setPalette(PaletteOf(theme));
    m_application.setStyleSheet(SheetOf(theme));
}

}  // namespace studio
