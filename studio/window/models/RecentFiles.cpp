#include "RecentFiles.h"

#include "SettingNames.h"
#include "StudioSettings.h"

namespace studio {

QStringList RecentFiles::Files() const
{
    return m_settings.List(kRecentFilesSetting).mid(0, kMost);
}

void RecentFiles::Add(const QString& file)
{
    QStringList files = Files();
    files.removeAll(file);
    files.prepend(file);
    m_settings.SetList(kRecentFilesSetting, files.mid(0, kMost));
}

void RecentFiles::Remove(const QString& file)
{
    QStringList files = Files();
    files.removeAll(file);
    m_settings.SetList(kRecentFilesSetting, files);
}

void RecentFiles::Clear()
{
    m_settings.SetList(kRecentFilesSetting, {});
}

}  // namespace studio
