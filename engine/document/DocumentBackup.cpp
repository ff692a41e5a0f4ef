#include "DocumentBackup.h"

#include "DocumentSchema.h"
#include "FileCopy.h"
#include "FileWriting.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>

namespace studio {
namespace {

/// Two documents of one name in different folders have copies of their own.
QString MarkOf(const QString& folder)
{
    constexpr qsizetype kLength = 4;
    return QString::fromLatin1(QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256)
                                   .toHex()
                                   .first(kLength));
}

QString NameWithinLimits(const QString& name)
{
    constexpr qsizetype kLongest = 60;  // four bytes each, and what follows
    return name.left(kLongest);
}

}  // namespace

std::string BackupFolder(const std::string& stateFolder)
{
    return stateFolder + "/backups";
}

void BackUpDocument(const std::string& path, const std::string& stateFolder, int kept)
{
    const QFileInfo document(QString::fromStdString(path));
    if (kept <= 0 || !document.isFile()) {
        return;
    }
    const std::string folder = BackupFolder(stateFolder);
    CorvexMaterial::MakeFolder(folder);
    const QDir backups(QString::fromStdString(folder));
    const QString suffix = u'.' + QLatin1String(kDocumentSuffix);
    const QString start = NameWithinLimits(document.completeBaseName()) + u'-' +
                          MarkOf(document.absolutePath()) + u'-';
    const auto namesOf = [&](const QString& end) {
        // Its own begin so, and then have nothing but a time.
        QStringList names;
        const QStringList all =
            QDir(backups.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        for (const QString& name : all) {
            const qsizetype length = start.size() + QStringLiteral("YYYYMMDD-HHMMSS").size();
            if (name.startsWith(start) && name.endsWith(end) &&
                name.size() == length + end.size()) {
                names << name;
            }
        }
        return names;
    };
    for (const QString& unfinished :
         namesOf(suffix + QLatin1String(CorvexMaterial::kUnfinishedCopy))) {
        QFile::remove(backups.filePath(unfinished));
    }
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    CorvexMaterial::CopyFile(path, backups.filePath(start + time + suffix).toStdString());
    QStringList all = namesOf(suffix);
    for (; all.size() > kept; all.removeFirst()) {
        QFile::remove(backups.filePath(all.front()));
    }
}

}  // namespace studio
