#include "DesktopLook.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingReply>
#include <QFileInfo>

namespace studio {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
// Where desktops keep it whose portal does not tell the contrast yet.
const QString kAccess = QStringLiteral("org.gnome.desktop.a11y.interface");

using Settings = QMap<QString, QVariantMap>;

/// Without one, asking for it would start one.
bool HasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

}  // namespace

DesktopLook::DesktopLook(QObject* parent) : QObject(parent)
{
    ReadPalette();
    if (HasSessionBus()) {
        qDBusRegisterMetaType<Settings>();
        QDBusConnection::sessionBus().connect(kService, kPath, kInterface,
                                              QStringLiteral("SettingChanged"), this, SLOT(Ask()));
        Ask();
    }
}

Theme DesktopLook::Wanted() const
{
    if (m_highContrast) {
        return Theme::HighContrast;
    }
    const Scheme scheme = m_portal != Scheme::Unknown ? m_portal : m_palette;
    return scheme == Scheme::Light ? Theme::Light : Theme::Dark;
}

void DesktopLook::ReadPalette()
{
    if (qEnvironmentVariableIsEmpty("XDG_CURRENT_DESKTOP")) {
        return;  // the toolkit's own colours then, which nobody has chosen
    }
    const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    m_palette = isDark ? Scheme::Dark : Scheme::Light;
}

void DesktopLook::LookAgain()
{
    const QPalette own = QApplication::palette();
    QApplication::setPalette(QPalette());
    const Theme before = Wanted();
    ReadPalette();
    QApplication::setPalette(own);
    if (Wanted() != before) {
        Q_EMIT Changed();
    }
}

void DesktopLook::Ask()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("ReadAll"));
    question << QStringList{kAppearance, kAccess};
    auto* call =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        Take(*call);
        call->deleteLater();
    });
}

void DesktopLook::Take(const QDBusPendingCallWatcher& call)
{
    const QDBusPendingReply<Settings> reply(call);
    if (reply.isError()) {
        return;
    }
    const Theme before = Wanted();
    const QVariantMap appearance = reply.value().value(kAppearance);
    const uint scheme = appearance.value(QStringLiteral("color-scheme")).toUInt();
    m_portal = scheme == 1 ? Scheme::Dark : scheme == 2 ? Scheme::Light : Scheme::Unknown;
    m_highContrast = appearance.value(QStringLiteral("contrast")).toUInt() == 1 ||
                     reply.value().value(kAccess).value(QStringLiteral("high-contrast")).toBool();
    if (Wanted() != before) {
        Q_EMIT Changed();
    }
}

}  // namespace studio
