#include "modRaytrace.h"

#include "ErrorTexts.h"
#include "FileFilter.h"
#include "RaytraceMessages.h"
#include "WorkingFolder.h"
#include "modDialog.h"
#include <CorvexMaterial/SettingsNames.h>
#include <CorvexMaterial/WarningCatalogue.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace CorvexMaterial {

namespace {

/// Where this system keeps its programs.
constexpr const char* kProgramFolder = "/usr/bin";
constexpr std::array<std::string_view, 1> kProgramExtensions{"exe"};

FileRequest RendererRequest(const RaytracerRow& row)
{
    FilterParts filter = SplitDialogFilter(
        DialogFilter(std::string(row.check.chooserDescription), kProgramExtensions));
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

modRaytrace::modRaytrace(Host& host, Platform& platform, QWidget* parent,
                         std::span<const RaytracerRow> rows)
    : m_host(host), m_platform(platform), m_parent(parent), m_rows(rows)
{
}

const RaytracerRow& modRaytrace::Selected()
{
    return RowOf(m_host.applicationState.SelectedRaytracer(), m_rows);
}

std::string modRaytrace::ProgramOf(const RaytracerRow& row)
{
    return row.program.locationKey.empty()
               ? m_host.applicationState.PovRayProgram()
               : m_platform.settings.Read(LocationOf(row)).value_or(std::string());
}

bool modRaytrace::CheckRaytracer()
{
    const RaytracerRow& row = Selected();
    if (ProgramOf(row).empty()) {
        return AskForProgram(row);
    }
    ShowHint(row);
    return true;
}

bool modRaytrace::AskForProgram(const RaytracerRow& row)
{
    bool visit = Ask(row.check.notFound);
    if (!row.check.select.empty()) {
        if (visit) {
            return Ask(row.check.select) && ChooseProgram(row);
        }
        visit = Ask(row.check.visit);
    }
    if (visit) {
        m_host.applicationState.OpenWebSite(row.check.site);
    }
    return false;
}

void modRaytrace::ShowHint(const RaytracerRow& row)
{
    const auto hint = std::ranges::find(WarningRows(), row.check.hintKey, &WarningRow::key);
    if (hint != WarningRows().end()) {
        modDialog(m_platform.settings, m_platform.prompts, m_host.diagnostics, m_parent)
            .ShowWarning({m_host.applicationState.SettingsApplicationName(),
                          std::string(hint->text), std::string(hint->key)});
    }
}

bool modRaytrace::ChooseProgram(const RaytracerRow& row)
{
    const WorkingFolder workingFolder;
    const auto file = m_platform.choosers.ChooseFile(RendererRequest(row));
    if (!file) {
        return false;
    }
    if (!IsProgram(*file)) {
        ShowRule(kWrongFileType);
        return false;
    }
    const SettingAddress address = LocationOf(row);
    m_platform.settings.Write(address, *file);
    TellAndGoOn(m_platform.prompts, [&] { m_platform.settings.Flush(address.application); });
    return true;
}

SettingAddress modRaytrace::LocationOf(const RaytracerRow& row)
{
    return {m_host.applicationState.SettingsApplicationName(), kApplicationSection,
            std::string(row.program.locationKey)};
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
