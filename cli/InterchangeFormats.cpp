#include "InterchangeFormats.h"

#include "Interchange.h"

namespace studio {
namespace {

void Append(const std::vector<std::string>& more, std::vector<std::string>& notes)
{
    notes.insert(notes.end(), more.begin(), more.end());
}

}  // namespace

ForeignFormats InterchangeFormats()
{
    ForeignFormats formats;
    formats.read = [](const std::string& path, const std::string& folder,
                      std::vector<std::string>& notes) {
        Report report;
        ImportProgram importer;
        importer.pictureFolder = folder;
        auto materials = ImportMaterials(path, report, importer);
        Append(NotesOf(report, materials.size()), notes);
        return materials;
    };
    formats.write = [](const std::string& path, std::span<const NamedMaterial> materials,
                       std::vector<std::string>& notes) {
        Report report;
        ExportMaterials(path, materials, report);
        Append(NotesOf(report, materials.size()), notes);
    };
    return formats;
}

}  // namespace studio
