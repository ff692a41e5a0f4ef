#include "studio/raytrace/PictureFile.h"

#include "host/Status.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QImageWriter>

namespace studio {

QByteArray PictureTypeOf(const QString& file)
{
    return QFileInfo(file).suffix().toLower().toLatin1();
}

void SavePicture(const QImage& picture, const QString& file, const PictureForm& form)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, form.type);
    writer.setQuality(form.quality);
    if (!writer.write(picture)) {
        throw CorvexMaterial::Error(
            CorvexMaterial::Status::FileFailed,
            QCoreApplication::translate("PictureFile", "%1 cannot be written: %2")
                .arg(file, writer.errorString())
                .toStdString());
    }
    CorvexMaterial::WriteFile(file.toStdString(), bytes, form.lifetime);
}

}  // namespace studio
