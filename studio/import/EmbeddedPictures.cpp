#include "studio/import/EmbeddedPictures.h"

#include "studio/interchange/gltf/GltfSurface.h"

#include <QCoreApplication>

namespace studio {
namespace {

void Take(const EmbeddedPicture& picture, ImportedMaterials& imported, const std::string& folder)
{
    const bool isWanted = !picture.wearers.empty() && !folder.empty();
    const std::string path =
        isWanted ? KeepPicture(picture, imported.materials[picture.wearers.front()].name, folder)
                 : std::string();
    if (path.empty()) {
        for (const std::size_t wearer : picture.wearers) {
            MaterialNotes(imported.report, imported.materials[wearer].name)
                .Dropped(kBaseImage,
                         folder.empty()
                             ? QT_TRANSLATE_NOOP("Interchange", "the image is inside the file")
                             : QT_TRANSLATE_NOOP("Interchange",
                                                 "the image inside the file cannot be read"));
        }
        return;
    }
    for (const std::size_t wearer : picture.wearers) {
        NamedMaterial& named = imported.materials[wearer];
        named.material.Textures.primary = path;
        MaterialNotes(imported.report, named.name)
            .Add(kBaseImage, Outcome::Mapped,
                 QT_TRANSLATE_NOOP("Interchange", "taken out of the file: %1"), path);
    }
}

}  // namespace

void TakeOutPictures(ImportedMaterials& imported, const std::string& folder)
{
    for (const EmbeddedPicture& picture : imported.pictures) {
        Take(picture, imported, folder);
    }
}

}  // namespace studio
