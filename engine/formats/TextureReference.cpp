#include "TextureReference.h"

#include "TextureFile.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace studio {
namespace {

/// "C:/" of another system, which is no folder here.
bool HasDriveLetter(const QString& path)
{
    return path.size() > 2 && path[0].isLetter() && path[1] == u':' && path[2] == u'/';
}

QString LocalPath(const std::string& reference)
{
    QString path = QString::fromStdString(reference).replace(u'\\', u'/');
    if (path.startsWith(QStringLiteral("file://"))) {
        path = QUrl(path).toLocalFile();
    }
    return path.remove(QChar(u'\0'));
}

}  // namespace

std::string ReferenceTo(const std::string& texture, const std::string& folder)
{
    const QString path = QString::fromStdString(texture);
    if (QDir::isRelativePath(path) || folder.empty()) {
        return texture;
    }
    return QDir(QString::fromStdString(folder)).relativeFilePath(path).toStdString();
}

FoundTexture FindReferenced(const std::string& reference, const std::string& folder)
{
    const QDir base(QString::fromStdString(folder));
    const QString path = LocalPath(reference);
    const QString beside = base.absoluteFilePath(path.section(u'/', -1));
    const QString meant =
        HasDriveLetter(path) ? beside : QDir::cleanPath(base.absoluteFilePath(path));
    for (const QString& candidate : {meant, beside}) {
        if (QFileInfo(candidate).isFile()) {
            return {candidate.toStdString(), true};
        }
    }
    return {meant.toStdString(), false};
}

bool AlphaChannels::In(const std::string& texture)
{
    constexpr ImageBounds kAnySize{1 << 14, 1LL << 28};
    if (texture.empty()) {
        return false;
    }
    const auto [known, isNew] = m_known.try_emplace(texture, false);
    if (isNew) {
        known->second = ReadTextureFile(texture, kAnySize).hasAlpha;
    }
    return known->second;
}

}  // namespace studio
