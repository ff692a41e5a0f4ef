#include "studio/raytrace/PictureFile.h"

#include "host/Status.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

namespace studio {

QByteArray PictureTypeOf(const QString& file)
{
    return QFileInfo(file).suffix().toLower().toLatin1();
}

void SavePicture(const QImage& picture, const QString& file, const QByteArray& type, int quality)
{
    const auto refuse = [&file](const QString& reason) {
        throw CorvexMaterial::Error(
            CorvexMaterial::Status::FileFailed,
            QCoreApplication::translate("PictureFile", "%1 cannot be written: %2")
                .arg(file, reason)
                .toStdString());
    };
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly)) {
        refuse(target.errorString());
    }
    QImageWriter writer(&target, type);
    writer.setQuality(quality);
    if (!writer.write(picture)) {
        refuse(writer.errorString());
    }
    if (!target.commit()) {
        refuse(target.errorString());
    }
}

}  // namespace studio
