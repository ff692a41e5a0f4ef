#include "studio/interchange/EmbeddedPicture.h"

#include "studio/libraries/LastingPicture.h"

#include <QBuffer>
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
QString FileNameOf(const std::string& owner, const QString& suffix)
{
    QString name;
    for (const QChar letter : QString::fromStdString(owner).left(60)) {
        const bool plain = letter.isLetterOrNumber() || letter == u'-' || letter == u' ';
        name += plain ? letter : u'_';
    }
    return name.trimmed() + u'.' + suffix;
}

}  // namespace

std::string KeepPicture(const EmbeddedPicture& picture, const std::string& owner,
                        const std::string& folder)
{
    const QString suffix = SuffixOf(picture.bytes);
    return suffix.isEmpty() ? std::string()
                            : StorePicture(picture.bytes, FileNameOf(owner, suffix), folder);
}

}  // namespace studio
