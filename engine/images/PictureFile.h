#pragma once

#include "FileWriting.h"

#include <QImage>
#include <QString>

namespace studio {

/// The type that a file's name ends in, as the toolkit names it.
[[nodiscard]] QByteArray PictureTypeOf(const QString& file);

struct PictureForm {
    QByteArray type;   ///< as the toolkit names it
    int quality = -1;  ///< 0 to 100, or the type's own
    CorvexMaterial::Lifetime lifetime = CorvexMaterial::Lifetime::Lasting;
};

/// Writes the picture, whole or not at all. Errors: FileFailed, naming the file.
void SavePicture(const QImage& picture, CorvexMaterial::FileWriter& target, const QString& file,
                 const PictureForm& form);
void SavePicture(const QImage& picture, const QString& file, const PictureForm& form);

}  // namespace studio
