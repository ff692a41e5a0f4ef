#include "Exchange.h"

namespace CorvexTest {

studio::ImportProgram MaterialImporter()
{
    return {QStringLiteral(IMPORTING_PROCESS), std::chrono::seconds(30)};
}

std::string SampleFile(const char* name)
{
    return std::string(INTERCHANGE_TEST_FILES "/") + name;
}

Imported Import(const std::string& path, const std::string& pictureFolder)
{
    Imported imported;
    studio::ImportProgram importer = MaterialImporter();
    importer.pictureFolder = pictureFolder;
    imported.materials = studio::ImportMaterials(path, imported.report, importer);
    return imported;
}

std::optional<studio::ReportRow> RowFor(const studio::Report& report, const std::string& material,
                                        const std::string& property)
{
    const auto row = std::ranges::find_if(report.Rows(), [&](const studio::ReportRow& candidate) {
        return candidate.material == material && candidate.property == property;
    });
    return row == report.Rows().end() ? std::nullopt : std::optional(*row);
}

std::string OutcomeFor(const studio::Report& report, const std::string& material,
                       const std::string& property)
{
    const auto row = RowFor(report, material, property);
    return row ? studio::TextOf(row->outcome) : "-";
}

}  // namespace CorvexTest
