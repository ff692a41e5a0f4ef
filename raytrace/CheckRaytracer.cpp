#include "raytrace/modRaytrace.h"

#include "dialogs/ErrorTexts.h"
#include "dialogs/FileFilter.h"
#include "dialogs/WarningCatalogue.h"
#include "dialogs/modDialog.h"
#include "platform/SettingsNames.h"
#include "raytrace/RaytraceMessages.h"
#include "raytrace/WorkingFolder.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace CorvexMaterial {

namespace {

/// Where this system keeps its programs.
constexpr const char* kProgramFolder = "/usr/bin";
constexpr std::array<std::string_view, 1> kProgramExtensions{"exe"};

FileRequest RendererRequest()
{
    FilterParts filter = SplitDialogFilter(DialogFilter(kRenderManDescription, kProgramExtensions));
    FileRequest request;
    request.title = QCoreApplication::translate("modRaytrace", "Select Renderer").toStdString();
    request.description = std::move(filter.description);
    request.extensions = std::move(filter.extensions);
    request.startFolder = kProgramFolder;
    request.isProgram = true;
    return request;
}

bool IsProgram(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    return file.isFile() && file.isExecutable();
}

}  // namespace

modRaytrace::modRaytrace(Host& host, Platform& platform, QWidget* parent)
    : m_host(host), m_platform(platform), m_parent(parent)
{
}

bool modRaytrace::CheckRaytracer()
{
    return m_host.applicationState.SelectedRaytracer() == CorvexDB::Raytracer::RenderMan
               ? CheckRenderMan()
               : CheckPovRay();
}

bool modRaytrace::CheckPovRay()
{
    if (m_host.applicationState.PovRayProgram().empty()) {
        if (Ask(kPovRayNotFound)) {
            m_host.applicationState.OpenWebSite(CorvexDB::WebSite::PovRay);
        }
        return false;
    }
    const WarningRow& warning = RowOf(WarningId::PovRayConfiguration);
    modDialog(m_platform.settings, m_platform.prompts, m_host.diagnostics, m_parent)
        .ShowWarning({m_host.applicationState.SettingsApplicationName(), std::string(warning.text),
                      std::string(warning.key)});
    return true;
}

bool modRaytrace::CheckRenderMan()
{
    if (!m_platform.settings.Read(RenderManLocation()).value_or(std::string()).empty()) {
        return true;
    }
    if (Ask(kRenderManNotFound)) {
        return Ask(kSelectRenderMan) && LocateRenderMan();
    }
    if (Ask(kVisitRenderManSite)) {
        m_host.applicationState.OpenWebSite(CorvexDB::WebSite::RenderMan);
    }
    return false;
}

bool modRaytrace::LocateRenderMan()
{
    const WorkingFolder workingFolder;
    const auto file = m_platform.choosers.ChooseFile(RendererRequest());
    if (!file) {
        return false;
    }
    if (!IsProgram(*file)) {
        ShowRule(kWrongFileType);
        return false;
    }
    const SettingAddress address = RenderManLocation();
    m_platform.settings.Write(address, *file);
    TellAndGoOn(m_platform.prompts, [&] { m_platform.settings.Flush(address.application); });
    return true;
}

SettingAddress modRaytrace::RenderManLocation()
{
    return {m_host.applicationState.SettingsApplicationName(), kApplicationSection,
            kRenderManLocationKey};
}

bool modRaytrace::Ask(std::string_view question)
{
    return m_platform.prompts.AskYesNo(
        {PromptIcon::Exclamation, std::string(kBoxTitle), std::string(question)});
}

void modRaytrace::ShowRule(std::string_view text)
{
    m_platform.prompts.Show({PromptIcon::Exclamation, std::string(kBoxTitle), std::string(text)});
}

}  // namespace CorvexMaterial
