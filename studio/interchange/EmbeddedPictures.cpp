#include "studio/interchange/EmbeddedPictures.h"

#include "studio/interchange/GltfSurface.h"
#include "studio/libraries/LastingPicture.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>

namespace studio {
namespace {

/// "png" and the like, empty for what is no image. The file's own word for it does not count.
QString SuffixOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    return reader.canRead() ? QString::fromLatin1(reader.format()) : QString();
}

/// Fit for a file on any system.
QString FileNameOf(const std::string& material, const QString& suffix)
{
    QString name;
    for (const QChar letter : QString::fromStdString(material).left(60)) {
        const bool plain = letter.isLetterOrNumber() || letter == u'-' || letter == u' ';
        name += plain ? letter : u'_';
    }
    return name.trimmed() + u'.' + suffix;
}

void Take(const EmbeddedPicture& picture, ImportedMaterials& imported, const std::string& folder)
{
    const QString suffix = SuffixOf(picture.bytes);
    if (suffix.isEmpty() || picture.wearers.empty() || folder.empty()) {
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
    const std::string& owner = imported.materials[picture.wearers.front()].name;
    const std::string path = StorePicture(picture.bytes, FileNameOf(owner, suffix), folder);
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
