#include "studio/app/ShippedLibraries.h"

#include "studio/Tr.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QTemporaryFile>

#include <algorithm>
#include <optional>

namespace studio {
namespace {

bool IsThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// Why a file could not be copied, if so. The copy gets its name when it is complete, and only if
/// nobody else took that name meanwhile.
std::optional<QString> CopyMissing(const QString& from, const QString& to)
{
    QFile source(from);
    QTemporaryFile copy(to + QStringLiteral(".XXXXXX.part"));
    if (!source.open(QIODevice::ReadOnly)) {
        return source.errorString();
    }
    if (!QDir().mkpath(QFileInfo(to).path()) || !copy.open()) {
        return copy.errorString();
    }
    const QByteArray bytes = source.readAll();
    if (bytes.size() != source.size() || copy.write(bytes) != bytes.size() || !copy.flush()) {
        return copy.errorString();
    }
    constexpr auto kReadableByAll = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                    QFileDevice::ReadGroup | QFileDevice::ReadOther;
    copy.setPermissions(kReadableByAll);
    if (!copy.rename(to)) {
        return IsThere(to) ? std::nullopt : std::optional(copy.errorString());
    }
    copy.setAutoRemove(false);
    return std::nullopt;
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
    for (const QString& name : FilesOf(from)) {
        const QString target = libraries + u'/' + name;
        if (IsThere(target)) {
            continue;
        }
        if (const auto reason = CopyMissing(from.filePath(name), target)) {
            problems << Tr("%1 could not be copied: %2").arg(target, *reason);
        }
    }
    return problems;
}

}  // namespace studio
