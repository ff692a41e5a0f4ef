#pragma once

#include "ThemeColours.h"

#include <QObject>

class QApplication;

namespace studio {

class DesktopLook;

/// What the user wants; kept in the settings as its number.
enum class ThemeChoice { Desktop, Light, Dark, HighContrast };

/// The studio's looks: quiet, one accent colour. The control neither knows nor needs them.
class Themes : public QObject {
    Q_OBJECT

public:
    /// Follows the desktop until something is chosen.
    explicit Themes(QApplication& application);

    /// At once, in every window. What is no choice counts as the first.
    void Choose(int choice);
    /// The desktop's colours may be others now.
    void LookAgain();

private:
    void Show();

    QApplication& m_application;
    DesktopLook* m_desktop;
    ThemeChoice m_choice = ThemeChoice::Desktop;
    std::optional<Theme> m_shown;
};

}  // namespace studio
