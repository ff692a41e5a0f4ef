#include "studio/app/StudioApplicationState.h"

#include "host/Status.h"
#include "studio/app/SettingNames.h"
#include "studio/raytrace/RaytracerPrograms.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace studio {
namespace {

std::string WithSeparator(const QString& folder)
{
    const QString clean = QDir::cleanPath(folder);
    return (clean.endsWith(u'/') ? clean : clean + u'/').toStdString();
}

}  // namespace

StudioApplicationState::StudioApplicationState(StudioProfile profile,
                                               const StudioSettings& settings)
    : m_profile(std::move(profile)), m_settings(settings)
{
}

std::string StudioApplicationState::SettingsApplicationName()
{
    return m_profile.settingsApplication;
}

std::string StudioApplicationState::LibraryFolder()
{
    return m_profile.dataFolder.toStdString();
}

bool StudioApplicationState::RaytracerAvailable()
{
    return SelectedRaytracer() == CorvexDB::Raytracer::RenderMan
               ? !m_settings.RenderManLocation().isEmpty()
               : !PovRayProgram().empty();
}

CorvexDB::Raytracer StudioApplicationState::SelectedRaytracer()
{
    return m_settings.Number(kRaytracerSetting, 0) == 1 ? CorvexDB::Raytracer::RenderMan
                                                        : CorvexDB::Raytracer::PovRay;
}

QString StudioApplicationState::PovRay() const
{
    return FindPovRay(m_settings.Text(kPovRayProgramSetting));
}

RaytracerProgram StudioApplicationState::Raytracer() const
{
    return m_settings.Number(kRaytracerSetting, 0) == 1
               ? RaytracerProgram{m_settings.RenderManLocation(), CorvexDB::Raytracer::RenderMan}
               : RaytracerProgram{PovRay()};
}

std::string StudioApplicationState::PovRayProgram()
{
    const QString program = PovRay();
    if (program.isEmpty()) {
        return {};
    }
    UsePovRay(program);
    return FindPovRayLauncher().toStdString();
}

std::int32_t StudioApplicationState::AntialiasChoice()
{
    return m_settings.Number(kAntialiasSetting, 1);
}

std::string StudioApplicationState::ScenePath()
{
    return m_openModel.isEmpty() ? std::string()
                                 : WithSeparator(QFileInfo(m_openModel).absolutePath());
}

std::vector<std::string> StudioApplicationState::SearchFolders()
{
    std::vector<std::string> folders;
    for (const QString& folder : m_settings.List(kSearchFoldersSetting)) {
        folders.push_back(WithSeparator(folder));
    }
    folders.push_back(WithSeparator(m_profile.dataFolder));
    return folders;
}

void StudioApplicationState::OpenWebSite(CorvexDB::WebSite site)
{
    QString address;
    switch (site) {
    case CorvexDB::WebSite::PovRay:
        address = QStringLiteral("https://www.povray.org/");
        break;
    case CorvexDB::WebSite::RenderMan:
        address = QStringLiteral("https://en.wikipedia.org/wiki/RenderMan_Interface_Specification");
        break;
    case CorvexDB::WebSite::Support:
        address = m_settings.Text(kSupportSiteSetting);
        break;
    }
    if (address.isEmpty()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::NotAvailable,
                                    "No support web site is set up in the studio's options.");
    }
    if (!QDesktopServices::openUrl(QUrl(address))) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::Failed,
                                    "The desktop could not open " + address.toStdString());
    }
}

}  // namespace studio
