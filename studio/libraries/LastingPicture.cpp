#include "studio/libraries/LastingPicture.h"

#include "host/Status.h"
#include "platform/FileWriting.h"
#include "raytrace/SimulationTexture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace studio {
namespace {

QByteArray BytesOfPicture(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    "The picture '" + path.toStdString() +
                                        "' cannot be read: " + file.errorString().toStdString());
    }
    return file.readAll();
}

QDir FolderOfPictures(const std::string& libraryFolder)
{
    return {QString::fromStdString(libraryFolder) + QStringLiteral("/Textures")};
}

bool HoldsOther(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.exists() && (!file.open(QIODevice::ReadOnly) || file.readAll() != bytes);
}

}  // namespace

std::string WithLastingPicture(const std::string& primary, const std::string& libraryFolder)
{
    if (!CorvexMaterial::IsSimulationTexture(primary)) {
        return primary;
    }
    const QFileInfo source(QString::fromStdString(primary));
    if (source.absoluteDir() == FolderOfPictures(libraryFolder)) {
        return primary;
    }
    return StorePicture(BytesOfPicture(source.filePath()), source.fileName(), libraryFolder);
}

std::string StorePicture(const QByteArray& bytes, const QString& name, const std::string& folder)
{
    const QDir pictures = FolderOfPictures(folder);
    const QFileInfo wanted(name);
    QString target = pictures.filePath(name);
    for (int i = 2; HoldsOther(target, bytes); ++i) {
        target = pictures.filePath(
            QStringLiteral("%1-%2.%3").arg(wanted.completeBaseName()).arg(i).arg(wanted.suffix()));
    }
    if (!QFileInfo::exists(target)) {
        CorvexMaterial::MakeFolder(pictures.path().toStdString());
        CorvexMaterial::WriteFile(target.toStdString(), bytes);
    }
    return target.toStdString();
}

}  // namespace studio
