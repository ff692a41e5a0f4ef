#include "StoredPath.h"

#include <QDir>
#include <QFileInfo>

namespace studio {

std::string StoredPath(const std::string& file, const std::string& folder)
{
    const QString path = QString::fromStdString(file);
    const QDir home(QString::fromStdString(folder));
    if (path.isEmpty() || QDir::isRelativePath(path)) {
        return file;
    }
    const QString relative = home.relativeFilePath(QDir::cleanPath(path));
    if (relative.startsWith(u"../../") || QDir::isAbsolutePath(relative)) {
        return file;
    }
    if (!relative.startsWith(u"../")) {
        return "./" + relative.toStdString();
    }
    const bool sharesRoot = QFileInfo(home.absolutePath()).dir().isRoot();
    return sharesRoot ? file : relative.toStdString();
}

std::string PathOfStored(const std::string& stored, const std::string& folder)
{
    const QString path = QString::fromStdString(stored);
    if (path.isEmpty() || QDir::isAbsolutePath(path)) {
        return stored;
    }
    const QString inFolder = QDir::cleanPath(QString::fromStdString(folder) + u'/' + path);
    const bool isMarked = path.startsWith(u"./") || path.startsWith(u"../");
    return isMarked || QFileInfo::exists(inFolder) ? inFolder.toStdString() : stored;
}

std::string FolderOf(const std::string& file)
{
    return QFileInfo(QString::fromStdString(file)).absolutePath().toStdString();
}

}  // namespace studio
