#include "StudioApplicationState.h"

#include "PovRayJob.h"
#include "RaytracerPrograms.h"
#include "SettingNames.h"
#include <CorvexMaterial/Status.h>

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
    return !Raytracer().path.isEmpty();
}

CorvexDB::Raytracer StudioApplicationState::SelectedRaytracer()
{
    return Raytracer().writer->raytracer->kind;
}

RaytracerProgram StudioApplicationState::Raytracer() const
{
    const SceneWriter& writer =
        WriterOf(static_cast<CorvexDB::Raytracer>(m_settings.Number(kRaytracerSetting, 0)));
    return {ProgramOf(writer.raytracer->program), &writer};
}

QString StudioApplicationState::ProgramOf(const CorvexMaterial::ProgramFacts& facts) const
{
    return FindProgram(facts, m_settings.RaytracerProgram(facts));
}

std::string StudioApplicationState::PovRayProgram()
{
    const CorvexMaterial::ProgramFacts& facts = CorvexMaterial::kPovRay.program;
    const QString program = ProgramOf(facts);
    if (program.isEmpty()) {
        return {};
    }
    PassProgram(facts, program);
    return FindLauncher(facts).toStdString();
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
