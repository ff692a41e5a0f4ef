#include "LastingPicture.h"

#include "FileSet.h"
#include "QtRegularFile.h"
#include <CorvexMaterial/SimulationTexture.h>
#include <CorvexMaterial/Status.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace studio {
namespace {

using CorvexMaterial::kMostPictureFileBytes;
using CorvexMaterial::OpenRegular;
using CorvexMaterial::ReadRegular;

QDir FolderOfPictures(const std::string& libraryFolder)
{
    return {QString::fromStdString(libraryFolder) + QStringLiteral("/Textures")};
}

bool HoldsOther(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.exists() && (!OpenRegular(file, kMostPictureFileBytes).empty() ||
                             file.size() != bytes.size() || file.readAll() != bytes);
}

}  // namespace

std::string WithLastingPicture(const std::string& primary, const std::string& libraryFolder,
                               CorvexMaterial::FileSet* files)
{
    if (!CorvexMaterial::IsSimulationTexture(primary)) {
        return primary;
    }
    const QFileInfo source(QString::fromStdString(primary));
    if (source.absoluteDir() == FolderOfPictures(libraryFolder)) {
        return primary;
    }
    return StorePicture(ReadRegular(source.filePath(), kMostPictureFileBytes), source.fileName(),
                        libraryFolder, files);
}

std::string StorePicture(const QByteArray& bytes, const QString& name, const std::string& folder,
                         CorvexMaterial::FileSet* files)
{
    const QDir pictures = FolderOfPictures(folder);
    const QFileInfo wanted(name);
    QString target = pictures.filePath(name);
    for (int i = 2; HoldsOther(target, bytes); ++i) {
        target = pictures.filePath(
            QStringLiteral("%1-%2.%3").arg(wanted.completeBaseName()).arg(i).arg(wanted.suffix()));
    }
    if (!QFileInfo::exists(target)) {
        if (files != nullptr) {
            files->WillMake(target.toStdString());
        }
        CorvexMaterial::MakeFolder(pictures.path().toStdString());
        CorvexMaterial::WriteFile(target.toStdString(), bytes);
    }
    return target.toStdString();
}

}  // namespace studio
