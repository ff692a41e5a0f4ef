#pragma once

#include <QImage>
#include <QString>

namespace studio {

/// The type that a file's name ends in, as the toolkit names it.
[[nodiscard]] QByteArray PictureTypeOf(const QString& file);

/// Writes the picture, whole or not at all. Quality 0 to 100, or -1 for the type's own. Errors:
/// FileFailed, naming the file.
void SavePicture(const QImage& picture, const QString& file, const QByteArray& type,
                 int quality = -1);

}  // namespace studio
