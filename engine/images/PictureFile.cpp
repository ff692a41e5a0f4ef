#include "PictureFile.h"

#include <CorvexMaterial/Status.h>

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
    CorvexMaterial::FileWriter target(file.toStdString(), form.lifetime);
    SavePicture(picture, target, file, form);
}

void SavePicture(const QImage& picture, CorvexMaterial::FileWriter& target, const QString& file,
                 const PictureForm& form)
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
    target.Write(bytes);
    target.Finish();
}

}  // namespace studio
