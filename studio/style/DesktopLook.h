#pragma once

#include "ThemeColours.h"

#include <QObject>

class QDBusPendingCallWatcher;

namespace studio {

/// What the desktop wants windows to look like, as its settings portal says or else its colours,
/// and when that changes. Dark where there is no desktop.
class DesktopLook : public QObject {
    Q_OBJECT

public:
    /// Before the application has colours of its own.
    explicit DesktopLook(QObject* parent);

    [[nodiscard]] Theme Wanted() const;
    /// The desktop's colours may be others now.
    void LookAgain();

Q_SIGNALS:
    void Changed();

private Q_SLOTS:
    void Ask();

private:
    enum class Scheme { Unknown, Light, Dark };

    void ReadPalette();
    void Take(const QDBusPendingCallWatcher& call);

    Scheme m_palette = Scheme::Unknown;
    Scheme m_portal = Scheme::Unknown;
    bool m_highContrast = false;
};

}  // namespace studio
