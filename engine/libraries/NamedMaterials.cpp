#include "NamedMaterials.h"

#include "LibraryFile.h"
#include "LibraryReading.h"
#include <CorvexMaterial/Status.h>

#include <memory>

namespace studio {
namespace {

std::optional<CorvexDB::udtMaterial> MaterialOfLibrary(LibraryFile& library,
                                                       const std::string& name)
{
    try {
        const std::vector<EntryId> ids = library.IdsNamed(name);
        const auto index = ids.empty() ? std::nullopt : library.IndexOf(ids.front());
        return index ? std::optional(ReadMaterial(library, *index).material) : std::nullopt;
    } catch (const CorvexMaterial::Error&) {
        return std::nullopt;
    }
}

}  // namespace

std::function<std::optional<CorvexDB::udtMaterial>(const std::string& name)>
NamedMaterialsOf(const std::string& libraryFile)
{
    std::shared_ptr<LibraryFile> library;
    try {
        library =
            std::make_shared<LibraryFile>(LibraryFile::Open(libraryFile, LibraryKind::Materials));
    } catch (const CorvexMaterial::Error&) {
        return {};
    }
    return [library](const std::string& name) { return MaterialOfLibrary(*library, name); };
}

}  // namespace studio
