#include "studio/import/InterchangeFormats.h"

#include "studio/import/Interchange.h"

namespace studio {
namespace {

void AppendNotes(const Report& report, std::size_t materials, std::vector<std::string>& notes)
{
    for (const ReportRow& row : report.Rows()) {
        if (row.outcome != Outcome::Mapped) {
            notes.push_back(row.material + ": " + row.property + " " + TextOf(row.outcome) + ", " +
                            row.note);
        }
    }
    notes.push_back(SummaryOf(report, materials).toStdString());
}

}  // namespace

ForeignFormats InterchangeFormats()
{
    ForeignFormats formats;
    formats.read = [](const std::string& path, const std::string& folder,
                      std::vector<std::string>& notes) {
        Report report;
        auto materials = ImportMaterials(path, report, {{}, folder});
        AppendNotes(report, materials.size(), notes);
        return materials;
    };
    formats.write = [](const std::string& path, std::span<const NamedMaterial> materials,
                       std::vector<std::string>& notes) {
        Report report;
        ExportMaterials(path, materials, report);
        AppendNotes(report, materials.size(), notes);
    };
    return formats;
}

}  // namespace studio
