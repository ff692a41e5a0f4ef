#include "EmbeddedPictures.h"

#include "LastingPicture.h"
#include "OwnFormats.h"
#include "OwnImage.h"
#include <CorvexMaterial/Status.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>

#include <utility>

namespace studio {
namespace {

/// "png" and the like, empty for what is no image. The file's own word for it does not count.
QString SuffixOf(QByteArray bytes)
{
    if (const OwnFormat* own = FindOwnFormat(BytesOf(bytes), {})) {
        return QString::fromLatin1(own->name);
    }
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    return reader.canRead() ? QString::fromLatin1(reader.format()) : QString();
}

/// Fit for a file on any system.
QString FileNameOf(const std::string& owner, const QString& suffix)
{
    QString name;
    for (const QChar letter : QString::fromStdString(owner).left(60)) {
        const bool plain = letter.isLetterOrNumber() || letter == u'-' || letter == u' ';
        name += plain ? letter : u'_';
    }
    return name.trimmed() + u'.' + suffix;
}

struct Keeping {
    std::string path;  ///< empty when it could not be kept
    const char* note;
    std::string detail;
};

Keeping Keep(const QByteArray& bytes, const std::string& owner, const std::string& folder)
{
    if (folder.empty()) {
        return {{}, QT_TRANSLATE_NOOP("Interchange", "the image is inside the file"), {}};
    }
    const QString suffix = SuffixOf(bytes);
    if (suffix.isEmpty()) {
        return {
            {}, QT_TRANSLATE_NOOP("Interchange", "the image inside the file cannot be read"), {}};
    }
    try {
        const std::string path = StorePicture(bytes, FileNameOf(owner, suffix), folder);
        return {path, QT_TRANSLATE_NOOP("Interchange", "taken out of the file: %1"), path};
    } catch (const CorvexMaterial::Error& error) {
        return {{}, "%1", error.what()};
    }
}

}  // namespace

void TakeOutPictures(ImportedModel& model, const std::string& folder)
{
    for (const EmbeddedPicture& picture : std::exchange(model.pictures, {})) {
        if (picture.wearers.empty()) {
            continue;
        }
        const std::string& owner = model.materials[picture.wearers.front()].name;
        const Keeping keeping = Keep(picture.bytes, owner, folder);
        const bool kept = !keeping.path.empty();
        for (const std::size_t wearer : picture.wearers) {
            auto& [name, material, details] = model.materials[wearer];
            std::string& texture = material.Textures.primary;
            texture = kept ? keeping.path : texture;
            MaterialNotes(model.report, name)
                .Add(kBaseImage, kept ? Outcome::Mapped : Outcome::Dropped, keeping.note,
                     keeping.detail);
        }
    }
}

}  // namespace studio
