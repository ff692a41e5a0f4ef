#include "ShippedLibraries.h"

#include "FileWriting.h"
#include "QtRegularFile.h"
#include "Tr.h"
#include <CorvexMaterial/Status.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QLockFile>

#include <algorithm>

namespace studio {
namespace {

constexpr int kLockMilliseconds = 10'000;

bool IsThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

constexpr std::int64_t kMostBytes = std::int64_t{1} << 30;

/// Whether a copy holds a part of the original and nothing else, as a power cut leaves it: the rest
/// is missing or zero. Nothing in it is the user's own then.
bool IsCutShort(const QString& copy, const QString& original)
{
    QFile file(copy);
    char first = 0;
    if (!CorvexMaterial::OpenRegular(file, QFileInfo(original).size()).empty()) {
        return false;
    }
    const bool isWhole = file.size() == QFileInfo(original).size();
    if (isWhole && file.peek(&first, 1) == 1 && first != 0) {
        return false;  // at every start: not all is read
    }
    const QByteArray bytes = file.readAll();
    const QByteArray whole = CorvexMaterial::ReadRegular(original, kMostBytes);
    return std::ranges::equal(bytes, whole.left(bytes.size()),
                              [](char had, char shipped) { return had == shipped || had == 0; });
}

void Copy(const QString& from, const QString& to)
{
    CorvexMaterial::MakeFolder(QFileInfo(to).path().toStdString());
    CorvexMaterial::WriteFile(to.toStdString(), CorvexMaterial::ReadRegular(from, kMostBytes));
}

/// Relative to the folder: first the images in the folders within, then the libraries.
QStringList FilesOf(const QDir& folder)
{
    QStringList names;
    QDirIterator files(folder.path(),
                       {QStringLiteral("*.cvm"), QStringLiteral("*.cvt"), QStringLiteral("*.jpg"),
                        QStringLiteral("*.png")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        names << folder.relativeFilePath(files.next());
    }
    names.sort();
    std::stable_partition(names.begin(), names.end(),
                          [](const QString& name) { return name.contains(u'/'); });
    return names;
}

}  // namespace

QString ShippedLibraryFolder()
{
    const QString program = QCoreApplication::applicationDirPath();
    for (const char* place : {"/Libraries", "/../share/CorvexStudio/Libraries"}) {
        const QDir folder(program + QLatin1String(place));
        if (folder.exists()) {
            return folder.absolutePath();
        }
    }
    return {};
}

QStringList DeliverLibraries(const QString& shipped, const QString& libraries)
{
    QStringList problems;
    if (shipped.isEmpty()) {
        return problems;
    }
    const QDir from(shipped);
    QDir().mkpath(libraries);
    // One studio at a time: what another has delivered it may have open.
    QLockFile lock(libraries + QStringLiteral("/.delivery"));
    static_cast<void>(lock.tryLock(kLockMilliseconds));
    for (const QString& name : FilesOf(from)) {
        const QString original = from.filePath(name);
        const QString target = libraries + u'/' + name;
        try {
            if (!IsThere(target) || IsCutShort(target, original)) {
                Copy(original, target);
            }
        } catch (const CorvexMaterial::Error& error) {
            problems << QString::fromUtf8(error.what());
        }
    }
    return problems;
}

}  // namespace studio
