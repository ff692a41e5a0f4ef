#include "StudioProfile.h"

#include <QDir>
#include <QStandardPaths>

namespace studio {
namespace {

// Qt 6.4 has no location for state files, so the desktop's variable is read here.
QString UserStateFolder()
{
    const QString configured = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base = QDir::isAbsolutePath(configured)
                             ? configured
                             : QDir::homePath() + QStringLiteral("/.local/state");
    return base + u'/' + QLatin1String(kStudioName);
}

}  // namespace

std::string MarksFile(const StudioProfile& profile)
{
    return (profile.dataFolder + QStringLiteral("/Favourites.cvu")).toStdString();
}

StudioProfile UserProfile()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    const QString own = u'/' + QLatin1String(kStudioName);
    return {kStudioName, data + own, UserStateFolder(), cache + own};
}

StudioProfile ProfileIn(const QString& folder)
{
    return {kStudioName, folder + QStringLiteral("/data"), folder + QStringLiteral("/state"),
            folder + QStringLiteral("/cache")};
}

}  // namespace studio
