#include "CollectedFiles.h"

#include "FileCopy.h"
#include "FileWriting.h"
#include "QtRegularFile.h"
#include <CorvexMaterial/Status.h>

#include <QDir>
#include <QFileInfo>

namespace studio {
namespace {

bool IsEqual(const QString& one, const QString& other)
{
    using CorvexMaterial::kMostPictureFileBytes;
    return QFileInfo(one).size() == QFileInfo(other).size() &&
           CorvexMaterial::ReadRegular(one, kMostPictureFileBytes) ==
               CorvexMaterial::ReadRegular(other, kMostPictureFileBytes);
}

/// A name that is free, or that of an equal file.
QString PlaceIn(const QDir& folder, const QString& file)
{
    const QFileInfo info(file);
    const QString end = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
    QString place = folder.filePath(info.fileName());
    const auto isTaken = [&file](const QString& path) {
        const QFileInfo there(path);
        return there.isSymLink() || (there.exists() && (!there.isFile() || !IsEqual(file, path)));
    };
    for (int number = 2; isTaken(place); ++number) {
        place = folder.filePath(
            QStringLiteral("%1 %2%3").arg(info.completeBaseName()).arg(number).arg(end));
    }
    return place;
}

}  // namespace

std::vector<TextureReplacement> CollectFiles(const std::vector<std::string>& files,
                                             const std::string& folder)
{
    const QDir target(QString::fromStdString(folder));
    std::vector<TextureReplacement> collected;
    for (const std::string& path : files) {
        const QString file = QString::fromStdString(path);
        const bool isBelow =
            QFileInfo(file).absoluteFilePath().startsWith(target.absolutePath() + u'/');
        if (isBelow || !QFileInfo(file).isFile()) {
            continue;
        }
        CorvexMaterial::MakeFolder(folder);
        const QString place = PlaceIn(target, file);
        if (!QFileInfo::exists(place)) {
            CorvexMaterial::CopyFile(path, place.toStdString());
        }
        collected.push_back({path, place.toStdString()});
    }
    return collected;
}

}  // namespace studio
