#include "studio/libraries/LastingPicture.h"

#include "host/Status.h"
#include "raytrace/SimulationTexture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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
    const QDir folder(QString::fromStdString(libraryFolder) + QStringLiteral("/Textures"));
    if (source.absolutePath() == folder.absolutePath()) {
        return primary;
    }
    const QByteArray bytes = BytesOfPicture(source.filePath());
    QString target = folder.filePath(source.fileName());
    for (int i = 2; HoldsOther(target, bytes); ++i) {
        target = folder.filePath(QStringLiteral("%1-%2.jpg").arg(source.baseName()).arg(i));
    }
    QSaveFile copy(target);
    if (!folder.mkpath(QStringLiteral(".")) || !copy.open(QIODevice::WriteOnly) ||
        copy.write(bytes) != bytes.size() || !copy.commit()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    "The picture '" + target.toStdString() +
                                        "' cannot be written: " + copy.errorString().toStdString());
    }
    return target.toStdString();
}

}  // namespace studio
